#include "cli/commands.h"
#include "cli/finding.h"
#include "cli/messages.h"
#include "cli/print_rows.h"

namespace tarvix::cli {

int Run(Host& host, const platform::Platform& machine, const SearchRequest& request) {
    Finding finding(host, machine);
    if (!finding.CheckLocations(request.criteria)) return kBadRequest;
    ProgramRun run;
    run.act = [&](results::Program& program) -> int {
        const auto& sort = request.output.sort;
        const int code = finding.Search(program, request.criteria, request.answers);
        if (host.interrupted() != 0) Complain(host, "The search was cut short by an interruption.");
        if (sort && code != kBadRequest) SortRows(program.Session(), *sort);
        return code;
    };
    run.afterUnload = [&](results::Program& program, int code) -> int {
        if (PrintRows(program.Rows(), machine.paths, request.output, host.out)) return code;
        // Who reads no further, as head does, knows.
        if (host.interrupted() == 0) Complain(host, "The results could not be written to the end.");
        return kSomeFailed;
    };
    return RunProgram(host, machine, finding.Prompts(), run);
}

} // namespace tarvix::cli
