#include "generate/proposed_file.h"

#include "generate/file_names.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/format.h"
#include "text/paths.h"

#include <fmt/core.h>

namespace tarvix::generate {

using session::Session;

std::string FirstLocation(const Session& session) {
    const std::string& box = session.frmSearch.cmbDir.Text;
    const std::string_view first = text::StripLeadingBar(box);
    return std::string(text::StripTrailingSlash(text::Trim(first.substr(0, first.find('|')))));
}

std::string ProposedFile(const Session& session, std::string_view name) {
    const auto& state = session.state;
    const std::string& box = session.frmDialog.cmbDir.Text;
    const std::string& remembered = state.strRememberedDestination;
    const bool isSame =
        state.strAction == state.strPrevAction && state.strFileKind == state.strPrevFileKind;
    if (isSame && !box.empty()) return box;
    const std::string folder = remembered.empty() ? FirstLocation(session) : remembered;
    return fmt::format("{}{}", text::StripTrailingSlash(folder), name);
}

std::string ProposedPlaylist(Session& session) {
    const auto& state = session.state;
    if (!state.blnAutoPlayList && !state.blnAutoPlayListFull) {
        return ProposedFile(session, "\\New Playlist.m3u");
    }
    const std::string& box = session.frmSearch.cmbDir.Text;
    const std::string folder = state.blnAutoPlayListFull ? state.strPlaylistFolder
                                                         : std::string(text::StripTrailingBar(box));
    return fmt::format("{}\\{}_{}.m3u", folder,
                       RemoveWildcards(session.frmSearch.cmbSearchFor.Text.Get()),
                       text::FormatDate(session.Now(), "hhnnss"));
}

} // namespace tarvix::generate
