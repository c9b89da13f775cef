// Searches a tree with every column listed, then times what the list does with its rows, beside the
// system's `sort` on the same keys. One line a figure.

#include "app/program.h"
#include "platform/linux/linux_platform.h"
#include "results/sorting.h"
#include "session/scripted_prompts.h"
#include "session/user_input.h"

#include <fmt/format.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {

using namespace tarvix;

class Watch {
  public:
    double Seconds() const {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
    }

  private:
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

double Megabytes(const char* key) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(key)) return std::atof(line.c_str() + line.find(':') + 1) / 1024;
    }
    return 0;
}

// The time of `sort` on the column's cells as the list has them.
double SortBySystem(const results::ResultList& rows, results::Column column,
                    const std::string& folder) {
    const std::string keys = folder + "/keys";
    {
        std::ofstream out(keys, std::ios::binary);
        for (std::size_t i = 0; i < rows.Count(); ++i) {
            out << rows.Cell(i, column) << '\n';
        }
    }
    const Watch watch;
    const std::string command = "sort -f -o '" + folder + "/sorted' '" + keys + "'";
    if (std::system(command.c_str()) != 0) std::exit(1);
    return watch.Seconds();
}

void Arrange(app::Program& program, const std::string& folder) {
    auto& rows = program.Rows();
    for (const results::Column column :
         {results::kName, results::kSize, results::kDate, results::kExt, results::kPath,
          results::kPathName, results::kPathNameLength, results::kYearRank}) {
        results::RemoveSpacers(rows);
        results::SortRows(rows, results::kSearchFolderIndex, fields::SortDirection::kAscending);
        const double peer = SortBySystem(rows, column, folder);
        const Watch sorting;
        results::SortRows(rows, column, fields::SortDirection::kAscending);
        const double sorted = sorting.Seconds();
        const Watch grouping;
        const auto groups = results::GrouplstMain(rows, column);
        fmt::print("sort by {:<16} {:.3f} s, x{:.2f} of sort; grouping {:.3f} s for {} groups\n",
                   results::kColumns[static_cast<std::size_t>(column)].header, sorted,
                   sorted / peer, grouping.Seconds(), groups);
    }
    results::RemoveSpacers(rows);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        fmt::print(stderr, "Usage: bench_list TREE FOLDER\nFOLDER takes the files it needs.\n");
        return 2;
    }
    platform::LinuxOptions options;
    options.dataFolder = argv[2];
    options.hasDesktop = false;
    platform::LinuxPlatform machine(options);
    session::ScriptedPrompts prompts;
    prompts.SetFallback(session::ScriptedPrompts::Fallback::kSafe);
    app::Program program(machine.Parts(), prompts);
    program.Start("");
    auto& session = program.Session();
    auto& form = session.frmSearch;
    (void)session::UserSet(session, form.cmbSearchFor, "*");
    (void)session::UserSet(session, form.cmbDir, argv[1]);
    (void)session::UserClick(session, form.chkIncludeSubFolders);
    const double empty = Megabytes("VmRSS");
    const Watch search;
    (void)session::UserClick(session, form.cmdSearch);
    fmt::print("{} rows listed in {:.3f} s; peak memory {:.0f} MB over the empty program\n",
               program.Rows().Count(), search.Seconds(), Megabytes("VmHWM") - empty);
    const Watch select;
    (void)session::UserClick(session, form.cmdSelectAll);
    fmt::print("select all and BuildFileArray {:.3f} s for {} objects\n", select.Seconds(),
               program.Selection().lngSelTop + 1);
    (void)session::UserClick(session, form.cmdSelectNone);
    Arrange(program, argv[2]);
    program.Stop();
}
