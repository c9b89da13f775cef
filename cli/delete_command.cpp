#include "cli/commands.h"
#include "cli/finding.h"
#include "cli/messages.h"
#include "cli/summary.h"
#include "results/selection.h"
#include "session/prompt_id.h"
#include "session/user_input.h"

namespace tarvix::cli {

namespace {

using session::Session;

constexpr std::string_view kVerb = "Recycled";

// Answers the two questions that come for one object or another as the options say.
void AnswerAhead(Session& session, CommandPrompts& prompts, const DeleteRequest& request) {
    const auto& failure = session.forms.frmOverrideRecycleFail;
    const auto& hidden = session.forms.frmOverrideDialog;
    if (request.deletesForGood) {
        prompts.AnswerForm(session::PromptId::kOverrideRecycleFailure,
                           *request.deletesForGood ? failure.cmdYesToAll : failure.cmdNoToAll);
    }
    if (request.takesProtected) {
        prompts.AnswerForm(session::PromptId::kOverrideProtected,
                           *request.takesProtected ? hidden.cmdYesToAll : hidden.cmdNoToAll);
    }
}

int DeleteAll(Host& host, Session& session) {
    auto& form = session.frmSearch;
    std::int64_t wanted = 0;
    for (fields::CommandButton* button : {&form.cmdSelectAll, &form.cmdDeleteSelected}) {
        const auto clicked = session::UserClick(session, *button);
        if (!clicked) {
            Complain(host, clicked.error());
            return kBadRequest;
        }
        if (button == &form.cmdSelectAll) wanted = session.selection->lngSelTop + 1;
    }
    const auto& totals = session.state.lastAction;
    const bool wasStopped = session.state.blnStopAction;
    if (session.state.blnActionCancelled && !wasStopped && totals.done == 0) return kBadRequest;
    Summarize(host, kVerb, totals, wanted);
    return totals.done == wanted ? kDone : kSomeFailed;
}

int AfterSearch(Host& host, Session& session, int searchCode) {
    if (session.state.blnStopClicked) {
        Complain(host, "The search was cut short, so nothing was recycled.");
        return kSomeFailed;
    }
    if (session.rows->Count() == 0) {
        Summarize(host, kVerb, {}, 0);
        return searchCode;
    }
    const Watch watch(host, session);
    const int code = DeleteAll(host, session);
    return code == kDone ? searchCode : code;
}

} // namespace

int RunDelete(Host& host, const platform::Platform& machine, const DeleteRequest& request) {
    Finding finding(host, machine);
    if (!finding.CheckLocations(request.criteria)) return kBadRequest;
    if (request.confirmed) finding.Prompts().ConfirmActions();
    ProgramRun run;
    run.act = [&](results::Program& program) -> int {
        const int code = finding.Search(program, request.criteria, request.answers);
        if (code == kBadRequest) return code;
        AnswerAhead(program.Session(), finding.Prompts(), request);
        return AfterSearch(host, program.Session(), code);
    };
    return RunProgram(host, machine, finding.Prompts(), run);
}

} // namespace tarvix::cli
