#include "actions/run/report.h"

#include "actions/place/action_run.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/text_viewer.h"

#include <fmt/core.h>

#include <array>
#include <string>

namespace tarvix::actions {

namespace {

using session::Session;

std::string DuplicatePhrase(const ActionRun& run) {
    const char* recycle =
        run.request.isMove ? " recycle object and move.)" : " recycle object and copy.)";
    const std::array<const char*, 9> kLast{" skip duplicate(s).)",
                                           " overwrite duplicate(s).)",
                                           " rename duplicate(s).)",
                                           " skip duplicate(s).)",
                                           " overwrite duplicate(s).)",
                                           " rename duplicate(s).)",
                                           " Cancel).",
                                           recycle,
                                           recycle};
    switch (run.request.duplicates) {
    case DuplicateChoice::kAsk:
        return fmt::format(" acted upon as per the options you chose on the Ask form. (Your last "
                           "choice was -{}",
                           kLast[run.bytAskAnswer]);
    case DuplicateChoice::kOverwrite:
        return " overwritten as duplicates.";
    case DuplicateChoice::kSkip:
        return " skipped as duplicates.";
    case DuplicateChoice::kRename:
        return " renamed as duplicates.";
    case DuplicateChoice::kNone:
        break;
    }
    return {};
}

void OfferErrorLog(Session& session) {
    const auto& state = session.state;
    if (!state.blnErrorOccurred || !state.options.blnAutoMode) return;
    const int answer =
        session.MsgBox(session::PromptId::kOfferErrorLog,
                       "Error has occurred, would you like to view the Program Error log file?");
    if (answer != session::kYes) return;
    session::ViewAsText(session, state.strErrorLogFile, "ReportActionResult");
}

std::string RuleReport(const Session& session, const ActionRun& run, const std::string& done) {
    const session::SessionState& state = session.state;
    const RuleTally& tally = run.rule;
    const std::string failed =
        tally.intRuleNoFolder > 0
            ? fmt::format("\r\n\r\nThe last search path that failed was: \r\n\r\n{}",
                          session.Shown(state.strLastFailedSearch))
            : std::string();
    const bool hasSetFailed = tally.intRuleShortSearch > 0 && run.request.rule;
    const std::string set =
        hasSetFailed ? fmt::format(" - *{}*", run.request.rule->SetText()) : " example - |2,2|";
    const std::string position = state.strFailedPosition.empty()
                                     ? " example - *2*"
                                     : fmt::format(" - *{}*", state.strFailedPosition);
    return fmt::format(
        "Rule text used: \r\n\r\n{}\r\n\r\n{} - objects were successfully{} \r\n\r\n{} - objects "
        "did not find a destination folder.{}\r\n\r\n{} - objects path/name were shorter than "
        "character position typed into the Search Set of the Special Rule.{}  If any had exceeded, "
        "they would have matched anything so the object was skipped entirely.\r\n\r\n{} - objects "
        "path/name were shorter than character position typed into the Replacement Character of "
        "the Special Rule or there was a misplaced colon.{}\r\n\r\nSee the action log for more "
        "details.",
        session.Shown(run.request.typed), tally.intRuleOk, done, tally.intRuleNoFolder, failed,
        tally.intRuleShortSearch, set, tally.intRuleShortReplace, position);
}

} // namespace

void ReportActionResult(Session& session, const ActionRun& run) {
    const std::string done =
        fmt::format("{}{}", run.request.isMove ? " moved or" : " copied or", DuplicatePhrase(run));
    OfferErrorLog(session);
    if (run.request.way != Way::kSpecialRule) return;
    session.MsgBox(session::PromptId::kRuleReport,
                   run.rule.blnRuleFailed
                       ? RuleReport(session, run, done)
                       : fmt::format("No error conditions occured during Special Rule. Objects "
                                     "were successfully{} See the action log for more details.",
                                     done));
}

} // namespace tarvix::actions
