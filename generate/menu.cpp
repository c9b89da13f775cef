#include "generate/menu.h"

#include "generate/copy_into_boxes.h"
#include "generate/list_request.h"
#include "generate/make_folders.h"
#include "generate/number_form.h"
#include "generate/page.h"
#include "generate/pick_file.h"
#include "generate/playlist_mode.h"
#include "generate/proposed_file.h"
#include "generate/text_file.h"
#include "results/selection.h"
#include "session/lifecycle_events.h"
#include "session/prompt_id.h"
#include "session/session.h"

#include <fmt/core.h>

#include <array>
#include <optional>

namespace tarvix::generate {

namespace {

using session::PromptId;
using session::Session;

// What a menu entry sets up.
struct Entry {
    std::string_view control;
    std::string_view action;
    std::string_view fileKind; // empty leaves it as it was
    std::string_view heading;  // of the action window
    std::string_view file;     // proposed
};

constexpr std::array kEntries{
    Entry{"mnuNamesTxt", "Names Only", "Create Txt",
          "Copy Names Only to Text File:", "\\New Names Only Text File.txt"},
    Entry{"mnuPathNamesTxt", "Path and Names", "Create Txt",
          "Copy Path and Names to Text File:", "\\New Full Path Text File.txt"},
    Entry{"mnuPathNamesMPL", "Path and Names", "Create MPL",
          "Copy Path and Names to Text File:", "\\New Multiple Path List File.mpl"},
    Entry{"mnuNamesM3u", "Names Only", "Create M3u", "Copy Names Only to Text File:", ""},
    Entry{"mnuPathNamesM3u", "Path and Names", "Create M3u",
          "Copy Path and Names to Text File:", ""},
    Entry{"mnuTools_TargetPaths", "Target Paths", "",
          "Copy Target Paths to Text File:", "\\New Target Path List.txt"},
    Entry{"mnuTools_CreateHtml", "CreateHTML", "",
          "Create HTML page from objects to:", "\\New Web Page.htm"},
    Entry{"mnuTools_CreateMPLfromCombo", "Create MPL From Combo Box", "",
          "Create MPL From Combo Box:", "\\New Multiple Path List File.mpl"},
    Entry{"mnuTools_NumericIncrement", "Numeric Increment", "",
          "Create Numeric Increment Text File:", "\\New Numeric Increment List.txt"},
};

bool NeedsSelection(const Entry& entry) {
    return entry.action != "Create MPL From Combo Box" && entry.action != "Numeric Increment";
}

// The text of each entry of the page; false when the question was cancelled.
bool AskPageText(Session& session) {
    const std::string answer = session.InputBox(
        PromptId::kPageText,
        "What should the text be, for each entry?\r\n\r\nRecommend 'name only' for shortcuts and "
        "many other situations.\r\n\r\nPath\\Name is the default, since all info is included."
        "\r\n\r\n(PN-'Path\\Name', P-'Path Only', N-'Name Only', \r\nR - 'Relative portion of "
        "path only' (For one path only), \r\nF - 'Parent folder name only')",
        "PN");
    if (answer.empty()) return false;
    session.state.strHtmlText = ReadPageText(answer);
    return true;
}

// The page lies where its links can be relative.
std::string PageFile(Session& session, std::string_view name) {
    const std::string folder = FolderOfSelection(session);
    if (folder.empty()) {
        session.MsgBox(PromptId::kPageFolderMissing,
                       "All selected objects do not reside in one location");
    }
    std::string place = folder.empty() ? FirstLocation(session) : folder;
    if (place.ends_with('\\')) place.pop_back();
    return place.append(name);
}

// A remembered destination is offered as it is.
std::string NumbersFile(const Session& session, std::string_view name) {
    return ProposedFile(session, session.state.strRememberedDestination.empty() ? name : "");
}

std::string ProposalFor(Session& session, const Entry& entry) {
    if (entry.fileKind == "Create M3u") return ProposedPlaylist(session);
    if (entry.action == "CreateHTML") return PageFile(session, entry.file);
    if (entry.action == "Numeric Increment") return NumbersFile(session, entry.file);
    return ProposedFile(session, entry.file);
}

// What comes before the window for some of them; false to end there.
bool Prepare(Session& session, const Entry& entry) {
    auto& form = session.frmDialog;
    if (entry.action == "CreateHTML") {
        if (!AskPageText(session)) return false;
        form.chkAddEOF.Value = 0;
    }
    if (entry.action == "Numeric Increment") form.chkAddEOF.Value = 1;
    if (entry.action == "Create MPL From Combo Box") {
        session.events.Raise(session, lifecycle::kParseLocations);
    }
    return true;
}

void StartList(Session& session, const Entry& entry) {
    auto& state = session.state;
    auto& form = session.frmDialog;
    if (!state.IsBatch()) state.strAction = entry.action;
    if (!entry.fileKind.empty()) state.strFileKind = entry.fileKind;
    state.blnActionCancelled = false;
    state.lastAction = {};
    results::BuildFileArray(session);
    if (NeedsSelection(entry) && session.selection->lngSelTop < 0) {
        if (!state.IsBatch()) {
            session.MsgBox(PromptId::kNothingSelected, "Nothing is selected.");
        }
        return;
    }
    if (!Prepare(session, entry)) return;
    if (!state.blnAutoMove) form.cmbDir.Text = ProposalFor(session, entry);
    form.lblMain.Caption = std::string(entry.heading);
    session.frmSearch.lblStatus.Caption = "";
    session.events.Raise(session, lifecycle::kOpenDialog);
}

} // namespace

void AddGenerateEvents(session::EventTable& events) {
    for (const Entry& entry : kEntries) {
        events.On(
            fmt::format("frmSearch.{}_Click", entry.control),
            [&entry](Session& session, const session::EventArgs&) { StartList(session, entry); });
    }
    events.On("frmDialog.CopyToTextFile", CopyToTextFile);
    events.On("frmDialog.MakeFolders", MakeFolders);
    events.On("frmSearch.mnuTools_MakeFolders_Click", mnuTools_MakeFolders_Click);
    events.On("frmDialog.PickNewFile", PickNewFile);
    events.On("frmDialog.chkFindSimilar_Click", [](Session& session, const session::EventArgs&) {
        auto& form = session.frmDialog;
        form.txtDeviation.Visible = form.chkFindSimilar.Value == 1;
    });
    events.On("frmDialog.txtDeviation_Change", [](Session& session, const session::EventArgs&) {
        auto& box = session.frmDialog.txtDeviation.Text;
        box = CutDeviation(box.Get());
    });
    AddPlaylistEvents(events);
    AddNumberFormEvents(events);
    events.On("frmSearch.mnuTools_BypassMPL_Click", mnuTools_BypassMPL_Click);
    events.On("frmSearch.mnuTools_NewSearchFor_Click", mnuTools_NewSearchFor_Click);
}

} // namespace tarvix::generate
