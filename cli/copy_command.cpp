#include "cli/commands.h"
#include "cli/finding.h"
#include "cli/messages.h"
#include "session/user_input.h"

#include <array>
#include <ostream>
#include <utility>

namespace tarvix::cli {

namespace {

using session::Session;

// Fills in the action window and presses OK. A refusal, told by the window's own message, leaves
// it open: then it is cancelled.
void FillDialog(Host& host, Session& session, const std::string& destination) {
    auto& form = session.frmDialog;
    auto done = session::UserSet(session, form.optTo[0], "1");
    if (done) done = session::UserSet(session, form.optStructure[0], "1");
    if (done) done = session::UserSet(session, form.chkSkipAll, "1");
    if (done) done = session::UserSet(session, form.cmbDir, destination);
    if (done) done = session::UserClick(session, form.OKButton);
    if (!done) Complain(host, done.error());
    if (form.IsShown()) (void)session::UserClick(session, form.CancelButton);
    form.Hide();
}

std::string Objects(std::int64_t count) {
    return std::to_string(count) + (count == 1 ? " object" : " objects");
}

std::string Summary(const session::ActionTotals& totals, std::int64_t selected) {
    std::string summary = "Copied " + std::to_string(totals.done) + " of " + Objects(selected);
    const std::int64_t left = selected - totals.done - totals.skipped - totals.failed;
    const std::array<std::pair<std::int64_t, std::string_view>, 3> others{
        {{totals.skipped, " skipped as they exist already"},
         {totals.failed, " failed"},
         {left, " not reached"}}};
    std::string_view between = "; ";
    for (const auto& [count, what] : others) {
        if (count == 0) continue;
        summary.append(between).append(std::to_string(count)).append(what);
        between = ", ";
    }
    return summary + ".";
}

int CopyFound(Host& host, Session& session, int searchCode) {
    auto& form = session.frmSearch;
    for (forms::Control* button : {&form.cmdSelectAll, &form.cmdCopySelected}) {
        const auto clicked = session::UserClick(session, *button);
        if (clicked) continue;
        Complain(host, clicked.error());
        return kBadRequest;
    }
    if (session.state.blnActionCancelled) return kBadRequest;
    const std::int64_t selected = session.selection->lngSelTop + 1;
    const auto& totals = session.state.lastAction;
    host.out << Summary(totals, selected) << std::endl;
    return totals.done == selected ? searchCode : kSomeFailed;
}

} // namespace

int RunCopy(Host& host, const platform::Platform& machine, const CopyRequest& request) {
    Finding finding(host, machine);
    if (!finding.CheckLocations(request.criteria)) return kBadRequest;
    const std::string destination = finding.Paths().ToDrive(request.destination);
    if (request.confirmed) finding.Prompts().ConfirmActions();
    finding.Prompts().SetDialogFiller(
        [&](Session& session) { FillDialog(host, session, destination); });
    ProgramRun run;
    run.act = [&](lifecycle::Program& program) -> int {
        Session& session = program.Session();
        const int code = finding.Search(program, request.criteria, request.answers);
        if (code == kBadRequest) return code;
        if (session.state.blnStopClicked) {
            Complain(host, "The search was cut short, so nothing was copied.");
            return kSomeFailed;
        }
        if (program.Rows().Count() == 0) {
            host.out << Summary({}, 0) << std::endl;
            return code;
        }
        const Watch watch(host, session);
        return CopyFound(host, session, code);
    };
    return RunProgram(host, machine, finding.Prompts(), run);
}

} // namespace tarvix::cli
