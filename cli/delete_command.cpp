#include "actions/request/preview_delete.h"
#include "cli/commands.h"
#include "cli/finding.h"
#include "cli/messages.h"
#include "cli/print_rows.h"
#include "cli/summary.h"
#include "platform/native_paths.h"
#include "results/selection.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/user_input.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <ostream>

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

// The rows are all selected, and nothing is asked or confirmed.
int PrintDeletion(Host& host, Session& session, const DeleteRequest& request) {
    const Watch watch(host, session);
    (void)session::UserClick(session, session.frmSearch.cmdSelectAll);
    results::BuildFileArray(session);
    const auto entries =
        actions::PreviewDelete(session, {request.takesProtected, request.deletesForGood});
    bool isAll = host.interrupted() == 0;
    for (const auto& [index, verdict] : entries) {
        using actions::DeleteVerdict;
        isAll = isAll && (verdict == DeleteVerdict::kTrash || verdict == DeleteVerdict::kForGood);
        const std::string_view path = session.selection->strSelPath[index];
        const std::string native = session.platform.paths.ToNative(path);
        if (request.json) {
            PrintJson({{"Object", path},
                       {"NativePath", native},
                       {"Verdict", actions::VerdictText(verdict)}},
                      host.out);
        } else {
            host.out << actions::VerdictText(verdict) << '\t' << PlainField(native) << '\n';
        }
    }
    host.out.flush();
    return isAll ? kDone : kSomeFailed;
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
        if (request.dryRun) return std::max(code, PrintDeletion(host, session, request));
        AnswerAhead(session, finding.Prompts(), request);
        const auto after = [&](std::int64_t selected) -> int {
            const auto& state = session.state;
            const bool isRefused = state.blnActionCancelled && !state.blnStopAction;
            if (isRefused && state.lastAction.done == 0) return kBadRequest;
            TellErrors(host, state.lastAction.errors, state.lastAction.failed);
            return Summarize(host, "Recycled", state.lastAction, selected);
        };
        return finding.ActOnAll(session, code, session.frmSearch.cmdDeleteSelected, "Recycled",
                                false, after);
    };
    return RunProgram(host, machine, finding.Prompts(), run);
}

} // namespace tarvix::cli
