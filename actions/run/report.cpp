#include "actions/run/report.h"

#include "actions/request/dialog_setup.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/text_viewer.h"

#include <array>
#include <string>

namespace tarvix::actions {

namespace {

using session::Session;

constexpr std::string_view kGap = "\r\n\r\n";

std::string DuplicatePhrase(const Session& session) {
    const auto& form = session.frmDialog;
    const auto& action = session.state.action;
    if (form.chkAsk.Value == 1) {
        const char* recycle =
            action.blnMove ? " recycle object and move.)" : " recycle object and copy.)";
        const std::array<const char*, 9> kLast{" skip duplicate(s).)",
                                               " overwrite duplicate(s).)",
                                               " rename duplicate(s).)",
                                               " skip duplicate(s).)",
                                               " overwrite duplicate(s).)",
                                               " rename duplicate(s).)",
                                               " Cancel).",
                                               recycle,
                                               recycle};
        return std::string(" acted upon as per the options you chose on the Ask form. (Your last "
                           "choice was -") +
               kLast[action.bytAskAnswer];
    }
    if (form.chkOverWrite.Value == 1) return " overwritten as duplicates.";
    if (form.chkSkipAll.Value == 1) return " skipped as duplicates.";
    return form.chkRename.Value == 1 ? " renamed as duplicates." : "";
}

void OfferErrorLog(Session& session) {
    const auto& state = session.state;
    if (!state.action.blnErrorOccurred || !state.options.blnAutoMode) return;
    const int answer =
        session.MsgBox(session::PromptId::kOfferErrorLog,
                       "Error has occurred, would you like to view the Program Error log file?");
    if (answer != session::kYes) return;
    session::ViewAsText(session, state.strErrorLogFile, "ReportActionResult");
}

std::string RuleReport(const Session& session, const std::string& done) {
    const auto& action = session.state.action;
    std::string report = "Rule text used: ";
    report.append(kGap).append(session.frmDialog.cmbDir.Text.Get()).append(kGap);
    report += std::to_string(action.intRuleOk) + " - objects were successfully" + done + " ";
    report.append(kGap);
    report +=
        std::to_string(action.intRuleNoFolder) + " - objects did not find a destination folder.";
    if (action.intRuleNoFolder > 0) {
        report.append(kGap).append("The last search path that failed was: ").append(kGap);
        report += action.strLastFailedSearch;
    }
    const std::string set = action.strSearchSetText.empty()
                                ? " example - |2,2|"
                                : " - *" + action.strSearchSetText + "*";
    report.append(kGap);
    report += std::to_string(action.intRuleShortSearch) +
              " - objects path/name were shorter than character position typed into the Search "
              "Set of the Special Rule." +
              set +
              "  If any had exceeded, they would have matched anything so the object was skipped "
              "entirely.";
    const std::string position = action.strFailedPosition.empty()
                                     ? " example - *2*"
                                     : " - *" + action.strFailedPosition + "*";
    report.append(kGap);
    report += std::to_string(action.intRuleShortReplace) +
              " - objects path/name were shorter than character position typed into the "
              "Replacement Character of the Special Rule or there was a misplaced colon." +
              position;
    return report.append(kGap).append("See the action log for more details.");
}

} // namespace

void ReportActionResult(Session& session) {
    const auto& action = session.state.action;
    const std::string done =
        (action.blnMove ? " moved or" : " copied or") + DuplicatePhrase(session);
    OfferErrorLog(session);
    if (!session.frmDialog.optTo[3].Value) return;
    session.MsgBox(session::PromptId::kRuleReport,
                   action.blnRuleFailed
                       ? RuleReport(session, done)
                       : "No error conditions occured during Special Rule. Objects were "
                         "successfully" +
                             done + " See the action log for more details.");
}

void Report(Session& session) {
    ReportActionResult(session);
    SetBusy(session, false);
}

} // namespace tarvix::actions
