#include "cli/commands.h"
#include "cli/finding.h"
#include "cli/messages.h"
#include "cli/output_columns.h"
#include "cli/print_rows.h"
#include "results/quick_cells.h"
#include "results/result_list.h"
#include "session/session.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarvix::cli {

namespace {

// Shows what is printed and sorted by, whatever the options show; they are as they were when it
// goes.
class PrintedColumns {
  public:
    PrintedColumns(session::Session& session, const RowOutput& output)
        : shown_(session.blnListItems), before_(shown_) {
        for (const int column : output.columns) {
            if (column >= 0) shown_[static_cast<std::size_t>(column)] = true;
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

bool PrintsCells(RowFormat format) {
    return format != RowFormat::kPaths && format != RowFormat::kZeroPaths;
}

// The columns that a request leaves open are those that the options show.
RowOutput WithColumns(RowOutput output, const session::Session& session) {
    if (!PrintsCells(output.format)) return output;
    if (output.columns.empty()) {
        output.columns = UsualColumns(session.blnListItems, output.format);
    } else if (output.format == RowFormat::kJson) {
        output.columns = JsonColumns(std::move(output.columns));
    }
    return output;
}

// Dates that are taken for wrong are replaced in the list.
bool DatesAreModified(const session::Session& session, const Criteria& criteria) {
    return criteria.dateKind == 0 && session.state.options.intLatestYear == session::kAnyYear;
}

} // namespace

int Run(Host& host, const platform::Platform& machine, const SearchRequest& request) {
    Finding finding(host, machine);
    if (!finding.CheckLocations(request.criteria)) return kBadRequest;
    finding.Prompts().NeverAsk();
    ProgramRun run;
    run.act = [&](results::Program& program) -> int {
        const auto& sort = request.output.sort;
        const RowOutput output = WithColumns(request.output, program.Session());
        const PrintedColumns printed(program.Session(), output);
        const results::NamesAlone alone(program.Rows(),
                                        PrintedColumns::AreOfPaths(program.Session(), output));
        const int code = finding.Search(program, request.criteria, request.answers);
        if (host.interrupted() != 0) Complain(host, "The search was cut short by an interruption.");
        if (sort && code != kBadRequest) SortRows(program.Session(), *sort);
        return code;
    };
    run.afterUnload = [&](results::Program& program, int code) -> int {
        const session::Session& session = program.Session();
        const RowPrint print{.output = WithColumns(request.output, session),
                             .toTerminal = host.outIsTerminal,
                             .datesAreModified = DatesAreModified(session, request.criteria)};
        const PrintedColumns printed(program.Session(), print.output);
        if (PrintRows(session, print, host.out)) return code;
        // Who reads no further, as head does, knows.
        if (host.interrupted() == 0) Complain(host, "The results could not be written to the end.");
        return kSomeFailed;
    };
    return RunProgram(host, machine, finding.Prompts(), run);
}

} // namespace tarvix::cli
