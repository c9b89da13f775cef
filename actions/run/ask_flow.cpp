#include "actions/run/ask_flow.h"

#include "actions/place/action_run.h"
#include "actions/place/duplicate.h"
#include "actions/place/duplicate_rename.h"
#include "actions/place/engine.h"
#include "actions/place/outcome.h"
#include "actions/place/overlap.h"
#include "actions/place/recycle.h"
#include "actions/run/duplicate_facts.h"
#include "platform/clock.h"
#include "platform/file_system.h"
#include "results/exe_facts.h"
#include "session/paths/short_path.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/wordings.h"
#include "text/format.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <array>
#include <utility>

namespace tarvix::actions {

namespace {

using session::Session;
using session::Wording;

// `actual` opens the object that is told of as `path`.
fields::AskedObject AskedObject(Session& session, std::string_view path, std::string_view actual,
                                bool isFile) {
    fields::AskedObject asked{.folder = session.Shown(text::ParentFolder(path)),
                              .name = session.Shown(text::FolderOwnName(path)),
                              .isFile = isFile};
    const auto facts = session.files().Facts(actual);
    if (!facts) return asked;
    asked.date = session::WordedDate(session, session.platform.clock.ToLocal(facts->modified));
    if (!isFile) return asked;
    asked.size = text::Format(static_cast<std::int64_t>(facts->size), "##,###,###,##0");
    results::GetVersionInfo(session.files(), actual, asked.version, asked.os);
    return asked;
}

fields::DuplicateQuestion Question(Session& session, const ActionRequest& request,
                                   const Clash& clash) {
    const Object& object = clash.object;
    return {.question = fmt::format("Duplicate found of {} :\r\n\r\n'{}'\r\n\r\n"
                                    "Would you like to replace existing",
                                    object.isFile ? "File" : "Folder", session.Shown(object.name)),
            .existing =
                AskedObject(session, clash.destination, clash.destination, clash.there.isFile),
            .thisOne = AskedObject(session, object.path, object.actual, object.isFile),
            .rule = fmt::format("Rename rule: Add  {}", RenameRuleText(request))};
}

void ShowButtons(Session& session, const ActionRequest& request, const Clash& clash) {
    auto& form = session.forms.frmAsk;
    const bool bothFiles = clash.object.isFile && clash.there.isFile;
    const bool differ = clash.object.isFile != clash.there.isFile;
    form.cmdOverwrite.Visible = form.cmdOverwriteAll.Visible = !request.isMove && !differ;
    form.cmdDeleteReplace.Visible = !request.isMove && !bothFiles;
    form.cmdDeleteReplaceAll.Visible = !request.isMove && !bothFiles && !differ;
    form.cmdDeleteReplace.Caption = std::string(
        session::Worded(session, !differ              ? Wording::kRecycleFolderButton
                                 : clash.there.isFile ? Wording::kRecycleFileForFolder
                                                      : Wording::kRecycleFolderForFile));
    form.cmdDeleteReplaceAll.Caption =
        std::string(session::Worded(session, Wording::kRecycleFoldersButton));
    // Without a text no new name can be made.
    form.cmdRename.Enabled = form.cmdRenameAll.Enabled = !request.renameText.empty();
}

bool Stands(std::uint8_t answer) {
    return answer >= kAskSkipAll && answer != kAskDeleteReplace;
}

void LogAnswer(Session& session, std::string_view line, const Object& object) {
    if (!line.empty())
        session::LogTimed(session, fmt::format("{}{}", line, session.Shown(object.path)));
}

void Show(Session& session, ActionRun& run, const Clash& clash) {
    auto& form = session.forms.frmAsk;
    form.parts = Question(session, run.request, clash);
    if (session::SpeaksPlainly(session)) TellDifferences(session, run, clash, form.parts);
    form.lblMain.Caption = fields::TextOf(form.parts);
    ShowButtons(session, run.request, clash);
    form.Focus = &form.cmdSkip;
    form.Answer = kAskSkip;
    session.ShowModal(session::PromptId::kDuplicate);
    run.bytAskAnswer = form.Answer;
    constexpr std::array<std::string_view, 9> kLines{
        "",
        "",
        "",
        " User selected skip to all in Ask form at: ",
        " User selected overwrite to all in Ask form at: ",
        " User selected rename to all in Ask form at: ",
        "",
        "",
        " User selected delete and replace to all file\\folders in Ask form at: "};
    LogAnswer(session, kLines[run.bytAskAnswer], clash.object);
}

// False when the object there stays, and the one in hand is not placed.
bool RecycleDuplicate(Session& session, const Clash& clash) {
    const std::string target =
        session::GetShortPathNameReturnCodes(session, clash.destination).path;
    while (!RecycleOne(session, target)) {
        const std::string told =
            session::Worded(session, Wording::kReplaceRefused, session.Shown(target));
        if (session.MsgBox(session::PromptId::kDuplicateNotRecycled, told) == session::kRetry) {
            continue;
        }
        session::LogTimed(
            session, fmt::format(" User selected Recycle and Replace in Ask form to object: {}"
                                 "Permission was denied, action was not performed.\r\n\r\nWith "
                                 "Recycle and Replace, object was most likely open, possibly in "
                                 "explorer or other application.",
                                 session.Shown(clash.object.path)));
        return false;
    }
    session::LogTimed(session, fmt::format(" Recycled {}", session.Shown(target)));
    return true;
}

Outcome Replace(Session& session, ActionRun& run, const Clash& clash) {
    if (auto apart = KeepApart(session, run, clash)) return std::move(*apart);
    if (auto refused = RefusesOverlap(session, clash, DuplicateUse::kReplace)) {
        return std::move(*refused);
    }
    return ReplaceDuplicate(session, run, clash.object, clash.destination,
                            [&] { return RecycleDuplicate(session, clash); });
}

Outcome Act(Session& session, ActionRun& run, const Clash& clash) {
    switch (run.bytAskAnswer) {
    case kAskOverwrite:
    case kAskOverwriteAll:
        if (auto apart = KeepApart(session, run, clash)) return std::move(*apart);
        if (auto refused = RefusesOverlap(session, clash, DuplicateUse::kReplace)) {
            return std::move(*refused);
        }
        return OverWriteDuplicate(session, run, clash.object, clash.destination);
    case kAskRename:
    case kAskRenameAll:
        return RenameObjForDuplicate(session, run, clash);
    case kAskDeleteReplace:
    case kAskDeleteReplaceAll:
        return Replace(session, run, clash);
    default:
        break;
    }
    Outcome outcome;
    outcome.kind = OutcomeKind::kSkippedDuplicate;
    return outcome;
}

} // namespace

std::string RenameRuleText(const ActionRequest& request) {
    const std::string_view where = request.renamesAtEnd ? "end." : "beginning.";
    if (request.renameText.empty()) {
        return fmt::format("'' at {}  (There is no text to add: type one in the action window to "
                           "rename duplicates.)",
                           where);
    }
    return fmt::format("'{}' at {}", request.renameText, where);
}

Outcome AskAboutDuplicate(Session& session, ActionRun& run, const Clash& clash) {
    // There is nothing to ask about when both are one.
    if (auto refused = RefusesOverlap(session, clash, DuplicateUse::kKeep)) {
        return std::move(*refused);
    }
    if (clash.object.isFile != clash.there.isFile) run.bytAskAnswer = kAskSkip;
    if (!Stands(run.bytAskAnswer)) Show(session, run, clash);
    session.forms.frmAsk.Answer = run.bytAskAnswer;
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
    LogAnswer(session, kLines[run.bytAskAnswer], clash.object);
    if (run.bytAskAnswer != kAskCancel) return Act(session, run, clash);
    Outcome cancelled;
    cancelled.endsRun = true;
    return cancelled;
}

void AddAskEvents(session::EventTable& events) {
    constexpr std::array<std::pair<const char*, AskAnswer>, 9> kButtons{{
        {"frmAsk.cmdSkip_Click", kAskSkip},
        {"frmAsk.cmdOverwrite_Click", kAskOverwrite},
        {"frmAsk.cmdRename_Click", kAskRename},
        {"frmAsk.cmdSkipAll_Click", kAskSkipAll},
        {"frmAsk.cmdOverwriteAll_Click", kAskOverwriteAll},
        {"frmAsk.cmdRenameAll_Click", kAskRenameAll},
        {"frmAsk.cmdCancel_Click", kAskCancel},
        {"frmAsk.cmdDeleteReplace_Click", kAskDeleteReplace},
        {"frmAsk.cmdDeleteReplaceAll_Click", kAskDeleteReplaceAll},
    }};
    for (const auto& [event, answer] : kButtons) {
        events.On(event, [answer](Session& session, const session::EventArgs&) {
            session.forms.frmAsk.Answer = answer;
            session.forms.frmAsk.Hide();
        });
    }
}

} // namespace tarvix::actions
