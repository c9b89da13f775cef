#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "session/lifecycle/startup.h"
#include "session/paths/path_list.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/paths.h"

#include <fmt/core.h>

namespace tarvix::lifecycle {

void CommandLineOptions(session::Session& session, std::string_view argument) {
    const std::string drivePath = session.platform.paths.ToDrive(argument);
    const std::string path(text::StripTrailingSlash(drivePath));
    if (path.empty()) return;
    const auto facts = session.files().Facts(path);
    if (!facts) return;
    auto& form = session.frmSearch;
    if (facts->IsFolder()) {
        form.cmbDir.Text = path;
    } else if (text::Upper(path).ends_with(".MPL")) {
        const std::string locations = session::ReadPathList(session, path);
        form.cmbDir.Text = locations.empty() ? std::string{} : fmt::format("|{}", locations);
    } else {
        form.cmbDir.Text = std::string(text::StripTrailingSlash(text::ParentFolder(path)));
        form.cmbSearchFor.Text = std::string(text::FolderOwnName(path));
    }
}

} // namespace tarvix::lifecycle
