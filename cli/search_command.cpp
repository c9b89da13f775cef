#include "cli/commands.h"
#include "cli/finding.h"
#include "cli/messages.h"
#include "cli/print_rows.h"

namespace tarvix::cli {

namespace {

// Clicks the column's head until the list stands as wanted: the first click on another head sorts
// upward, a second one turns the order round.
void Sort(session::Session& session, const SortRequest& sort) {
    constexpr int kMostClicks = 2;
    const auto& list = session.frmSearch.lstMain;
    const auto wanted =
        sort.descending ? fields::SortDirection::kDescending : fields::SortDirection::kAscending;
    const auto isWanted = [&] {
        return list.SortKey.Get() == sort.column && list.SortOrder.Get() == wanted;
    };
    for (int click = 0; click < kMostClicks && !isWanted(); ++click)
        session.events.Raise(session, "frmSearch.lstMain_ColumnClick", {sort.column});
}

} // namespace

int Run(Host& host, const platform::Platform& machine, const SearchRequest& request) {
    Finding finding(host, machine);
    if (!finding.CheckLocations(request.criteria)) return kBadRequest;
    ProgramRun run;
    run.act = [&](results::Program& program) -> int {
        const auto& sort = request.output.sort;
        const int code = finding.Search(program, request.criteria, request.answers);
        if (sort && code != kBadRequest) Sort(program.Session(), *sort);
        return code;
    };
    run.afterUnload = [&](results::Program& program, int code) -> int {
        if (PrintRows(program.Rows(), machine.paths, request.output, host.out)) return code;
        Complain(host, "The results could not be written to the end.");
        return kSomeFailed;
    };
    return RunProgram(host, machine, finding.Prompts(), run);
}

} // namespace tarvix::cli
