#include "actions/request/start_sources.h"

#include "actions/place/action_run.h"
#include "actions/request/action_names.h"
#include "actions/request/dialog_setup.h"
#include "actions/request/edit_names.h"
#include "results/selection.h"
#include "session/lifecycle_events.h"
#include "session/prompt_id.h"
#include "session/session.h"

#include <fmt/core.h>

#include <array>
#include <string_view>

namespace tarvix::actions {

namespace {

using session::PromptId;
using session::Session;

constexpr std::string_view kPrefixNote =
    "You MUST have already created a file of possible prefixes \r\nto search for within the files "
    "to be renamed.\r\n\r\nIf the text prefix is found within the file, it will be renamed "
    "\r\nwith "
    "that prefix in parentheses. ex - (Prefix)old filename.ext";
constexpr std::string_view kTitleNote =
    "If you have selected a set of files, first the program will check if the file itself is an "
    ".htm(l). \r\nIf so, it uses its own title tag to rename. If not, second the program will look "
    "for an .htm(l), in the same folder, \r\nwith a matching name and use it's title tag. If no "
    "match is found it will use the title tag of the first .htm(l) \r\nin the same folder. When "
    "the "
    "object is a folder the same steps are taken except working inside the \r\nfolder and a folder "
    "can NOT be an html.\r\nThe <Title> will be added to the beginning of the current name.";

// What a menu entry starts.
struct Entry {
    std::string_view control;
    std::string_view action;
    std::string_view heading; // of the action window
    std::string_view log;     // the entry's name there
    PromptId note = PromptId::kEnd;
    std::string_view noteText = {};
};

constexpr std::array kEntries{
    Entry{"mnuRenameSelFromFile", kRenameFromList, "Rename from text File",
          "Rename Objects based on list"},
    Entry{"mnuRenameSelFromHTMLSearch", kRenameFromLinks,
          "Rename from HTML File: ", "Rename Objects based on Html link"},
    Entry{"mnuRenameSelFromSelfSearch", kRenameByPrefix, "Rename from Self Search",
          "Rename by adding prefix", PromptId::kPrefixNote, kPrefixNote},
    Entry{"mnuRenameSelFromTitle", kRenameAsTitle, "Rename as <Title>",
          "Rename Objects based on Html <title>", PromptId::kTitleNote, kTitleNote},
    Entry{"mnuTools_FolderSummary", kCopyAsFolderName,
          "Copy Files and Rename as Folder Name to:", "Summarize Objects"},
};

void StartSource(Session& session, const Entry& entry) {
    auto& state = session.state;
    state.strAction = entry.action;
    state.blnActionCancelled = false;
    state.lastAction = {};
    if (entry.action == kCopyAsFolderName) session.forms.frmOverrideDialog.Answer = kOverrideNo;
    results::BuildFileArray(session);
    if (session.selection->lngSelTop < 0) {
        session.MsgBox(PromptId::kNothingSelected, "Nothing is selected.");
        return;
    }
    if (entry.note != PromptId::kEnd) session.MsgBox(entry.note, entry.noteText);
    ClearForeignDestination(session);
    session.frmDialog.lblMain.Caption = std::string(entry.heading);
    session.frmSearch.lblStatus.Caption = "";
    session::LogTimed(session,
                      fmt::format(" User clicked the on the '{}' menu item which opened the Action "
                                  "form. ",
                                  entry.log));
    session.events.Raise(session, lifecycle::kOpenDialog);
}

} // namespace

void AddSourceEvents(session::EventTable& events) {
    for (const Entry& entry : kEntries) {
        events.On(
            fmt::format("frmSearch.{}_Click", entry.control),
            [&entry](Session& session, const session::EventArgs&) { StartSource(session, entry); });
    }
    events.On("frmDialog.cmdEditNames_Click",
              [](Session& session, const session::EventArgs&) { cmdEditNames_Click(session); });
}

} // namespace tarvix::actions
