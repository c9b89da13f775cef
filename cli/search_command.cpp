#include "cli/commands.h"
#include "cli/finding.h"
#include "cli/messages.h"
#include "cli/print_rows.h"
#include "results/quick_cells.h"
#include "results/result_list.h"
#include "session/session.h"

#include <algorithm>
#include <array>

namespace tarvix::cli {

namespace {

// Shows what is printed and sorted by, whatever the options show; they are as they were when it
// goes.
class PrintedColumns {
  public:
    PrintedColumns(session::Session& session, const RowOutput& output)
        : shown_(session.blnListItems), before_(shown_) {
        const bool printsCells =
            output.format != RowFormat::kPaths && output.format != RowFormat::kZeroPaths;
        if (printsCells && output.columns.empty()) shown_.fill(true);
        for (const int column : output.columns) {
            if (column != kNativePathColumn) shown_[static_cast<std::size_t>(column)] = true;
        }
        if (output.sort) shown_[output.sort->column] = true;
    }

    // Whether nothing but paths is printed, in an order that goes by paths.
    static bool AreOfPaths(const session::Session& session, const RowOutput& output) {
        const bool printsPaths =
            output.format == RowFormat::kPaths || output.format == RowFormat::kZeroPaths;
        const bool takesColumns =
            printsPaths ||
            (!output.columns.empty() && std::ranges::all_of(output.columns, [](int column) {
                return column == kNativePathColumn || results::IsOfPath(column);
            }));
        return takesColumns && results::IsOfPath(session.frmSearch.lstMain.SortKey) &&
               (!output.sort || results::IsOfPath(static_cast<int>(output.sort->column)));
    }
    ~PrintedColumns() { shown_ = before_; }
    PrintedColumns(const PrintedColumns&) = delete;
    PrintedColumns& operator=(const PrintedColumns&) = delete;

  private:
    std::array<bool, session::kVisibilityCount>& shown_;
    std::array<bool, session::kVisibilityCount> before_;
};

} // namespace

int Run(Host& host, const platform::Platform& machine, const SearchRequest& request) {
    Finding finding(host, machine);
    if (!finding.CheckLocations(request.criteria)) return kBadRequest;
    ProgramRun run;
    run.act = [&](results::Program& program) -> int {
        const auto& sort = request.output.sort;
        const PrintedColumns printed(program.Session(), request.output);
        const results::NamesAlone alone(
            program.Rows(), PrintedColumns::AreOfPaths(program.Session(), request.output));
        const int code = finding.Search(program, request.criteria, request.answers);
        if (host.interrupted() != 0) Complain(host, "The search was cut short by an interruption.");
        if (sort && code != kBadRequest) SortRows(program.Session(), *sort);
        return code;
    };
    run.afterUnload = [&](results::Program& program, int code) -> int {
        const PrintedColumns printed(program.Session(), request.output);
        if (PrintRows(program.Session(), request.output, host.out)) return code;
        // Who reads no further, as head does, knows.
        if (host.interrupted() == 0) Complain(host, "The results could not be written to the end.");
        return kSomeFailed;
    };
    return RunProgram(host, machine, finding.Prompts(), run);
}

} // namespace tarvix::cli
