#include "shortcuts/edit_mode.h"

#include "platform/file_system.h"
#include "results/link_cells.h"
#include "results/result_list.h"
#include "results/selection.h"
#include "session/attempt.h"
#include "session/prompt_id.h"
#include "session/prompt_service.h"
#include "session/remembered/replace_file.h"
#include "session/session.h"
#include "session/text_viewer.h"
#include "shortcuts/edit_warning.h"
#include "shortcuts/link_table.h"
#include "shortcuts/save_mode.h"

#include <fmt/core.h>

#include <initializer_list>
#include <memory>
#include <string>

namespace tarvix::shortcuts {

namespace {

using session::PromptId;
using session::Session;

constexpr std::string_view kEditCaption = "Edi&t Links (shortcuts)";
constexpr std::string_view kSaveCaption = "  Save &Targets";
constexpr std::string_view kFailedText =
    "Error has occurred in Edit Link Files (Shortcut), refresh the search.";
constexpr std::string_view kNothingText =
    "No 'lnk' or 'url' files to edit here.\r\n\r\n"
    "Only select those with a Target Path. It is not allowed to edit 'lnk' or 'url' files with no "
    "Target Path\r\nIf you need to, edit those manually first.";

// The buttons of the window before the mode.
enum Choice : std::uint8_t { kChoseText = 1, kChoseTable = 2, kChoseCancel = 6 };

void PrepareForShortcutEdit(Session& session) {
    session.frmSearch.cboTargetPath.Visible = true;
    session.frmSearch.lblTargetPath.Visible = true;
    for (int column = results::kTargetPath; column <= results::kIconPath; ++column) {
        session.blnListItems[static_cast<std::size_t>(column)] = true;
    }
}

void SetFormEnabled(Session& session, bool enabled) {
    auto& form = session.frmSearch;
    for (fields::Control* control :
         std::initializer_list<fields::Control*>{&form.cmdSearch,
                                                 &form.chkSize,
                                                 &form.cmbSearchFor,
                                                 &form.cboTargetPath,
                                                 &form.cmbDir,
                                                 &form.cmdBrowse,
                                                 &form.cmdClearFolders,
                                                 &form.chkIncludeSubFolders,
                                                 &form.chkRepeatSearch,
                                                 &form.chkFastSort,
                                                 &form.chkOneEach,
                                                 &form.chkReadOnly,
                                                 &form.chkHidden,
                                                 &form.chkSystem,
                                                 &form.chkArchive,
                                                 &form.chkAlias,
                                                 &form.chkCompressed,
                                                 &form.chk64,
                                                 &form.chk128,
                                                 &form.chk256,
                                                 &form.chk512,
                                                 &form.cmdSelectAll,
                                                 &form.cmdSelectAllFiles,
                                                 &form.cmdSelectAllDirs,
                                                 &form.cmdSelectNone,
                                                 &form.cmdSelectReverse,
                                                 &form.cmdMoveSelected,
                                                 &form.cmdRenameSelected,
                                                 &form.cmdDeleteSelected,
                                                 &form.cmdDoVersionSort,
                                                 &form.mnuBrowse_ClearNow,
                                                 &form.mnuOptions,
                                                 &form.mnuRenameSelFromFile,
                                                 &form.mnuRenameSelFromHTMLSearch,
                                                 &form.mnuRenameSelFromSelfSearch,
                                                 &form.mnuRenameSelFromTitle,
                                                 &form.mnuRun,
                                                 &form.mnuTools}) {
        control->Enabled = enabled;
    }
}

std::uint8_t AskHow(Session& session) {
    auto& form = session.forms.frmShortcutWarning;
    form.lblTop.Caption = WarningTop();
    form.lblBottom.Caption = WarningBottom();
    form.cmdTable.Visible = session.prompts.PrefersForms();
    form.Answer = kChoseCancel;
    form.Show();
    session.ShowModal(PromptId::kShortcutWarning);
    return form.Answer;
}

void LeaveMode(Session& session, EditMode& mode) {
    ReEnableFormForLinkEdit(session);
    session.frmSearch.cmdEditTargets.Caption = std::string(kEditCaption);
    session.frmSearch.mnuShortcutsWarning.Visible = false;
    session.state.blnEditTargets = false;
    mode.links.clear();
}

// False when the user said no, and the mode goes on.
bool SaveTargets(Session& session, EditMode& mode) {
    session.frmSearch.lblStatus.Caption = "Updating List Display";
    const Saved saved = SaveTargetPathFile(session, mode);
    session.frmSearch.lblStatus.Caption = "";
    if (saved == Saved::kNotWanted) return false;
    if (saved == Saved::kFailed) session.MsgBox(PromptId::kLinkEditFailed, kFailedText);
    LeaveMode(session, mode);
    results::BuildFileArray(session);
    return true;
}

// Changes that are not wanted lead back to the table.
void RunTable(Session& session, EditMode& mode) {
    FillTable(session, mode);
    while (EditInTable(session, mode)) {
        if (SaveTargets(session, mode)) return;
    }
    LeaveMode(session, mode);
}

// The text is written in either case, so that one road leads back.
void EnterMode(Session& session, EditMode& mode, std::uint8_t choice) {
    session.frmSearch.cmdEditTargets.Caption = std::string(kSaveCaption);
    session.state.blnEditTargets = true;
    DisableFormForLinkEdit(session);
    if (choice == kChoseTable) return RunTable(session, mode);
    if (!session::ViewAsText(session, session.state.strTargetPathFile, "OpenTargetPathFile"))
        return;
    session::LogTimed(
        session, fmt::format(" {} file opened properly for Shortcut Edit mode", mode.links.size()));
}

void EditTargets(Session& session, EditMode& mode) {
    auto& form = session.frmSearch;
    form.mnuShortcutsWarning.Visible = true;
    const std::uint8_t choice = AskHow(session);
    if (choice == kChoseCancel) {
        form.mnuShortcutsWarning.Visible = false;
        return;
    }
    form.lblStatus.Caption = "Building Target Path File";
    const Opened opened = WriteTargetPathFile(session, mode);
    if (opened == Opened::kOpened) {
        EnterMode(session, mode, choice);
    } else {
        form.mnuShortcutsWarning.Visible = false;
        const bool isFailed = opened == Opened::kFailed;
        session.MsgBox(isFailed ? PromptId::kLinkEditFailed : PromptId::kNoLinksToEdit,
                       isFailed ? kFailedText : kNothingText);
    }
    form.lblStatus.Caption = "";
}

void CancelMode(Session& session, EditMode& mode) {
    LeaveMode(session, mode);
    session::LogTimed(session, " User cancelled Shortcut Editing Mode.");
}

// The record of a selected shortcut; one without a target is deselected. False for no record.
bool AddRow(Session& session, std::size_t row, EditMode& mode, std::string& text) {
    results::ResultRow& shown = session.rows->At(row);
    const Kind kind = shown.IsSpacer() || shown.isFolder ? Kind::kNone : KindOf(shown.name);
    if (!shown.selected || kind == Kind::kNone) return false;
    const results::LinkCells& cells = session.rows->Links(row);
    if (cells.shown[kTarget].empty()) {
        shown.selected = false;
        return false;
    }
    AppendRecord(text, {kind, std::string(shown.name), cells.shown});
    mode.links.push_back({session.rows->FullPath(row), kind});
    return true;
}

} // namespace

bool SaveEditText(Session& session, std::string_view routine, std::string_view text) {
    const std::string& path = session.state.strTargetPathFile;
    const session::ErrorContext context{.routine = routine,
                                        .moduleName = "frmSearch",
                                        .object = path,
                                        .path = path,
                                        .objectType = session::ObjectType::kFile};
    return static_cast<bool>(session::Attempt(
        session, context, [&] { return session::ReplaceTextFile(session.files(), path, text); }));
}

Opened WriteTargetPathFile(Session& session, EditMode& mode) {
    session::LogTimed(session, "  User chose to initiate Shortcut Edit mode");
    PrepareForShortcutEdit(session);
    mode.links.clear();
    std::string text;
    for (std::size_t row = 0; row < session.rows->Count(); ++row) {
        (void)AddRow(session, row, mode, text);
        session.Yield();
    }
    results::BuildFileArray(session);
    if (!SaveEditText(session, "OpenTargetPathFile", text)) return Opened::kFailed;
    return mode.links.empty() ? Opened::kNothing : Opened::kOpened;
}

void DisableFormForLinkEdit(Session& session) {
    SetFormEnabled(session, false);
}

void ReEnableFormForLinkEdit(Session& session) {
    SetFormEnabled(session, true);
    session.frmSearch.chkIncludeSubFolders.Enabled =
        session.state.options.blnAllowUserSelectSubfolders;
}

void AddShortcutEvents(session::EventTable& events) {
    const auto mode = std::make_shared<EditMode>();
    events.On("frmSearch.cmdEditTargets_Click",
              [mode](Session& session, const session::EventArgs&) {
                  if (session.state.blnEditTargets) {
                      (void)SaveTargets(session, *mode);
                  } else {
                      EditTargets(session, *mode);
                  }
              });
    events.On("frmSearch.mnuShortcutsWarning_Click",
              [mode](Session& session, const session::EventArgs&) { CancelMode(session, *mode); });
    const auto close = [&events](const char* button, std::uint8_t answer) {
        events.On(fmt::format("frmShortcutWarning.{}_Click", button),
                  [answer](Session& session, const session::EventArgs&) {
                      session.forms.frmShortcutWarning.Answer = answer;
                      session.forms.frmShortcutWarning.Hide();
                  });
    };
    close("cmdOk", kChoseText);
    close("cmdTable", kChoseTable);
    close("cmdCancel", kChoseCancel);
    AddLinkChangesEvents(events);
    AddLinkTableEvents(events);
}

} // namespace tarvix::shortcuts
