#include "actions/run/ask_flow.h"

#include "actions/place/duplicate_rename.h"
#include "actions/place/engine.h"
#include "actions/place/outcome.h"
#include "actions/place/overlap.h"
#include "actions/place/recycle.h"
#include "platform/clock.h"
#include "platform/file_system.h"
#include "results/exe_facts.h"
#include "results/selection.h"
#include "session/paths/short_path.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/format.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <array>

namespace tarvix::actions {

namespace {

using session::Session;

// `actual` opens the object that is told of as `path`.
fields::AskedObject AskedObject(Session& session, const std::string& path,
                                const std::string& actual, bool isFile) {
    fields::AskedObject asked{.folder = text::ParentFolder(path),
                              .name = std::string(text::FolderOwnName(path)),
                              .isFile = isFile};
    const auto facts = session.files().Facts(actual);
    if (!facts) return asked;
    asked.date = text::DefaultDateText(session.platform.clock.ToLocal(facts->modified));
    if (!isFile) return asked;
    asked.size = text::Format(static_cast<std::int64_t>(facts->size), "##,###,###,##0");
    results::GetVersionInfo(session.files(), actual, asked.version, asked.os);
    return asked;
}

fields::DuplicateQuestion Question(Session& session, std::size_t index) {
    const auto& tables = *session.selection;
    const auto& action = session.state.action;
    const bool isFile = tables.blnSelIsFile[index];
    return {.question = fmt::format("Duplicate found of {} :\r\n\r\n'{}'\r\n\r\n"
                                    "Would you like to replace existing",
                                    isFile ? "File" : "Folder", tables.strSelName[index]),
            .existing = AskedObject(session, action.strDestination, action.strDestination,
                                    action.blnDestIsFile),
            .thisOne = AskedObject(session, tables.strSelPath[index],
                                   tables.strSelActualPath[index], isFile),
            .rule = "Rename rule: Add  " + RenameRuleText(session)};
}

void ShowButtons(Session& session, bool sourceIsFile) {
    auto& form = session.forms.frmAsk;
    const auto& action = session.state.action;
    const bool bothFiles = sourceIsFile && action.blnDestIsFile;
    const bool differ = sourceIsFile != action.blnDestIsFile;
    form.cmdOverwrite.Visible = form.cmdOverwriteAll.Visible = !action.blnMove && !differ;
    form.cmdDeleteReplace.Visible = !action.blnMove && !bothFiles;
    form.cmdDeleteReplaceAll.Visible = !action.blnMove && !bothFiles && !differ;
    if (!differ) {
        form.cmdDeleteReplace.Caption =
            "Rec&ycle this duplicate folder and contents, then replace.";
    } else {
        form.cmdDeleteReplace.Caption =
            action.blnDestIsFile ? "Recycle duplicate file, then replace with original folder."
                                 : "Recycle duplicate folder, then replace with original file.";
    }
    // Without a text no new name can be made.
    const bool canRename = !session.frmDialog.txtRename.Text->empty();
    form.cmdRename.Enabled = form.cmdRenameAll.Enabled = canRename;
}

bool Stands(std::uint8_t answer) {
    return answer >= session::kAskSkipAll && answer != session::kAskDeleteReplace;
}

void Show(Session& session, std::size_t index) {
    auto& form = session.forms.frmAsk;
    form.parts = Question(session, index);
    form.lblMain.Caption = fields::TextOf(form.parts);
    ShowButtons(session, session.selection->blnSelIsFile[index]);
    form.Focus = &form.cmdSkip;
    session.state.action.bytAskAnswer = session::kAskSkip;
    session.ShowModal(session::PromptId::kDuplicate);
}

// False when the object there stays, and the one in hand is not placed.
bool RecycleDuplicate(Session& session, const std::string& path) {
    const std::string target =
        session::GetShortPathNameReturnCodes(session, session.state.action.strDestination).path;
    while (!RecycleOne(session, target)) {
        const std::string told =
            "Permission denied on: \r\n\r\n" + target + "\r\n\r\n action not performed.\r\n\r\n" +
            "With Recycle and Replace, object is most likely open, possibly in an "
            "application.\r\n\r\nAlso write to device/folder may not be allowed.\r\n\r\n"
            "ex. CD/DVD device is write protected.";
        if (session.MsgBox(session::PromptId::kDuplicateNotRecycled, told) == session::kRetry) {
            continue;
        }
        session::LogTimed(session,
                          " User selected Recycle and Replace in Ask form to object: " + path +
                              "Permission was denied, action was not performed.\r\n\r\nWith "
                              "Recycle and Replace, object was most likely open, possibly in "
                              "explorer or other application.");
        return false;
    }
    session::LogTimed(session, " Recycled " + target);
    return true;
}

void Replace(Session& session, const std::string& path, Outcome& outcome) {
    if (RefusesOverlap(session, DuplicateUse::kReplace, outcome)) return;
    if (!RecycleDuplicate(session, path)) return;
    PerformMoveOrCopy(session);
    outcome.kind = OutcomeKind::kReplaced;
}

void Act(Session& session, const std::string& path, Outcome& outcome) {
    switch (session.state.action.bytAskAnswer) {
    case session::kAskOverwrite:
    case session::kAskOverwriteAll:
        if (RefusesOverlap(session, DuplicateUse::kReplace, outcome)) return;
        OverWriteDuplicate(session);
        outcome.kind = OutcomeKind::kOverwrote;
        break;
    case session::kAskRename:
    case session::kAskRenameAll:
        RenameObjForDuplicate(session);
        outcome.kind = OutcomeKind::kCopied;
        outcome.isNewName = true;
        break;
    case session::kAskDeleteReplace:
    case session::kAskDeleteReplaceAll:
        Replace(session, path, outcome);
        break;
    default:
        outcome.kind = OutcomeKind::kSkippedDuplicate;
    }
}

void Choose(Session& session, std::uint8_t answer, std::string_view line) {
    auto& action = session.state.action;
    action.bytAskAnswer = answer;
    if (!line.empty()) {
        const auto index = static_cast<std::size_t>(action.lngAskIndex);
        session::LogTimed(session, std::string(line) + session.selection->strSelPath[index]);
    }
    session.forms.frmAsk.Hide();
}

} // namespace

std::string RenameRuleText(const Session& session) {
    const auto& form = session.frmDialog;
    const char* where = form.chkRenameBeg.Value == 1 ? "beginning." : "end.";
    if (form.txtRename.Text->empty()) {
        return std::string("'' at ") + where +
               "  (There is no text to add: type one in the action window to rename duplicates.)";
    }
    return "'" + form.txtRename.Text.Get() + "' at " + where;
}

bool AskAboutDuplicate(Session& session, Outcome& outcome) {
    auto& action = session.state.action;
    const auto index = static_cast<std::size_t>(action.lngIndex);
    action.lngAskIndex = action.lngIndex;
    // There is nothing to ask about when both are one.
    if (RefusesOverlap(session, DuplicateUse::kKeep, outcome)) return true;
    if (session.selection->blnSelIsFile[index] != action.blnDestIsFile) {
        action.bytAskAnswer = session::kAskSkip;
    }
    if (!Stands(action.bytAskAnswer)) Show(session, index);
    constexpr std::array<std::string_view, 9> kLines{
        " User selected skip in Ask form to object: ",
        " User selected overwrite in Ask form to object: ",
        " User selected rename in Ask form to object: ",
        "",
        "",
        "",
        " User selected cancel to all in Ask form at: ",
        " User selected Recycle and Replace in ask form to: ",
        ""};
    const std::string& path = session.selection->strSelPath[index];
    const std::string_view line = kLines[action.bytAskAnswer];
    if (!line.empty()) session::LogTimed(session, std::string(line) + path);
    if (action.bytAskAnswer == session::kAskCancel) return false;
    Act(session, path, outcome);
    return true;
}

void AddAskEvents(session::EventTable& events) {
    struct Button {
        const char* event;
        std::uint8_t answer;
        std::string_view line;
    };
    constexpr std::array<Button, 9> kButtons{{
        {"frmAsk.cmdSkip_Click", session::kAskSkip, ""},
        {"frmAsk.cmdOverwrite_Click", session::kAskOverwrite, ""},
        {"frmAsk.cmdRename_Click", session::kAskRename, ""},
        {"frmAsk.cmdSkipAll_Click", session::kAskSkipAll,
         " User selected skip to all in Ask form at: "},
        {"frmAsk.cmdOverwriteAll_Click", session::kAskOverwriteAll,
         " User selected overwrite to all in Ask form at: "},
        {"frmAsk.cmdRenameAll_Click", session::kAskRenameAll,
         " User selected rename to all in Ask form at: "},
        {"frmAsk.cmdCancel_Click", session::kAskCancel, ""},
        {"frmAsk.cmdDeleteReplace_Click", session::kAskDeleteReplace, ""},
        {"frmAsk.cmdDeleteReplaceAll_Click", session::kAskDeleteReplaceAll,
         " User selected delete and replace to all file\\folders in Ask form at: "},
    }};
    for (const Button& button : kButtons) {
        events.On(button.event, [button](Session& session, const session::EventArgs&) {
            Choose(session, button.answer, button.line);
        });
    }
}

} // namespace tarvix::actions
