#include "cli/commands.h"
#include "cli/finding.h"
#include "cli/messages.h"
#include "cli/summary.h"
#include "session/prompt_id.h"
#include "session/session.h"

namespace tarvix::cli {

namespace {

using session::Session;

// Answers the two questions that come for one object or another as the options say.
void AnswerAhead(Session& session, CommandPrompts& prompts, const DeleteRequest& request) {
    const auto& failure = session.forms.frmOverrideRecycleFail;
    const auto& hidden = session.forms.frmOverrideDialog;
    if (request.deletesForGood) {
        prompts.AnswerForm(session::PromptId::kOverrideRecycleFailure,
                           *request.deletesForGood ? failure.cmdYesToAll : failure.cmdNoToAll);
    }
    if (request.takesChanged) prompts.AnswerMessage(session::PromptId::kChangedSinceSearch, true);
    if (request.takesProtected) {
        prompts.AnswerForm(session::PromptId::kOverrideProtected,
                           *request.takesProtected ? hidden.cmdYesToAll : hidden.cmdNoToAll);
    }
}

} // namespace

int Run(Host& host, const platform::Platform& machine, const DeleteRequest& request) {
    Finding finding(host, machine);
    if (!finding.CheckLocations(request.criteria)) return kBadRequest;
    if (request.confirmed) finding.Prompts().ConfirmActions();
    ProgramRun run;
    run.act = [&](results::Program& program) -> int {
        const int code = finding.Search(program, request.criteria, request.answers);
        if (code == kBadRequest) return code;
        Session& session = program.Session();
        AnswerAhead(session, finding.Prompts(), request);
        const auto after = [&](std::int64_t selected) -> int {
            const auto& state = session.state;
            const bool isRefused = state.blnActionCancelled && !state.blnStopAction;
            if (isRefused && state.lastAction.done == 0) return kBadRequest;
            for (const std::string& error : state.lastAction.errors) {
                Complain(host, error);
            }
            return Summarize(host, "Recycled", state.lastAction, selected);
        };
        return finding.ActOnAll(session, code, session.frmSearch.cmdDeleteSelected, "Recycled",
                                false, after);
    };
    return RunProgram(host, machine, finding.Prompts(), run);
}

} // namespace tarvix::cli
