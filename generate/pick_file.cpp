#include "generate/pick_file.h"

#include "platform/native_paths.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/paths.h"

#include <algorithm>
#include <array>

namespace tarvix::generate {

namespace {

using session::PromptId;
using session::Session;

constexpr std::string_view kListFilters =
    "(*.txt;*.m3u;*.mpl)|*.txt;*.m3u;*.mpl|Multiple Path List Files (*.mpl)|*.mpl|"
    "Playlist Files (*.m3u)|*.m3u|Text Files (*.txt)|*.txt|All Files (*.*)|*.*|";
constexpr std::string_view kTextFilters = "Text Files (*.txt)|*.txt|All Files (*.*)|*.*|";
constexpr std::string_view kPageFilters = "Html Files (*.htm*)|*.htm*|All Files (*.*)|*.*|";
constexpr std::string_view kPathListFilters =
    "Multiple Path List Files (*.mpl)|*.mpl|All Files (*.*)|*.*|";

struct Dialog {
    std::string_view what; // file kind, or action
    PromptId id;
    std::string_view filters;
    int filter; // shown first
    std::string_view name;
};

constexpr std::array kDialogs{
    Dialog{"Create MPL", PromptId::kNewPathListFile, kListFilters, 3,
           "New Multiple Path List File.mpl"},
    Dialog{"Create M3u", PromptId::kNewPlaylistFile, kListFilters, 3, "New Playlist.m3u"},
    Dialog{"Create Txt", PromptId::kNewTextFile, kListFilters, 3, "New Text File.txt"},
    Dialog{"Target Paths", PromptId::kNewTargetFile, kTextFilters, 0, "New Target Path List.txt"},
    Dialog{"CreateHTML", PromptId::kNewPageFile, kPageFilters, 0, "New Web Page.htm"},
    Dialog{"Create MPL From Combo Box", PromptId::kNewLocationsFile, kPathListFilters, 0,
           "New Multiple Path List File.mpl"},
    Dialog{"Numeric Increment", PromptId::kNewNumbersFile, kTextFilters, 0,
           "New Numeric Increment List.txt"},
};

} // namespace

void PickNewFile(Session& session) {
    const auto& state = session.state;
    const bool goesByKind = state.strAction == "Names Only" || state.strAction == "Path and Names";
    const std::string& what = goesByKind ? state.strFileKind : state.strAction;
    const auto dialog = std::ranges::find(kDialogs, what, &Dialog::what);
    if (dialog == kDialogs.end()) return;
    const std::string folder = text::ParentFolder(session.frmDialog.cmbDir.Text.Get());
    const std::string file =
        session.PickNewFile(dialog->id, {.filters = dialog->filters,
                                         .name = dialog->name,
                                         .filter = dialog->filter,
                                         .folder = folder.contains('\\') ? folder : ""});
    if (!file.empty()) session.frmDialog.cmbDir.Text = session.platform.paths.ToDrive(file);
}

} // namespace tarvix::generate
