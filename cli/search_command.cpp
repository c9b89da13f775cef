#include "cli/commands.h"
#include "cli/finding.h"
#include "cli/messages.h"
#include "cli/print_rows.h"

namespace tarvix::cli {

namespace {

constexpr std::string_view kColumnClick = "frmSearch.lstMain_ColumnClick";

bool CanSort(Host& host, session::Session& session) {
    if (session.events.Has(kColumnClick)) return true;
    Complain(host, "The list can't be sorted by a column in this version: leave --sort out.");
    return false;
}

// A second click on the same head turns the order round.
void Sort(session::Session& session, const SortRequest& sort) {
    const auto wanted =
        sort.descending ? forms::SortDirection::kDescending : forms::SortDirection::kAscending;
    session.events.Raise(session, kColumnClick, {sort.column});
    if (session.frmSearch.lstMain.SortOrder.Get() != wanted) {
        session.events.Raise(session, kColumnClick, {sort.column});
    }
}

} // namespace

int RunSearch(Host& host, const platform::Platform& machine, const SearchRequest& request) {
    Finding finding(host, machine);
    if (!finding.CheckLocations(request.criteria)) return kBadRequest;
    ProgramRun run;
    run.act = [&](lifecycle::Program& program) -> int {
        const auto& sort = request.output.sort;
        if (sort && !CanSort(host, program.Session())) return kBadRequest;
        const int code = finding.Search(program, request.criteria, request.answers);
        if (sort && code != kBadRequest) Sort(program.Session(), *sort);
        return code;
    };
    run.afterUnload = [&](lifecycle::Program& program, int code) -> int {
        if (PrintRows(program.Rows(), machine.paths, request.output, host.out)) return code;
        Complain(host, "The results could not be written to the end.");
        return kSomeFailed;
    };
    return RunProgram(host, machine, finding.Prompts(), run);
}

} // namespace tarvix::cli
