// Searches a tree with every column listed, then times what the list does with its rows, in turn
// with the system's `sort` on the same keys.

#include "bench/bare_program.h"
#include "bench/pairs.h"
#include "results/sorting.h"
#include "session/user_input.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

using namespace tarvix;

using bench::Watch;

double Megabytes(const char* key) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(key)) return std::atof(line.c_str() + line.find(':') + 1) / 1024;
    }
    return 0;
}

constexpr int kPairs = 5;

void WriteKeys(const results::ResultList& rows, results::Column column, const std::string& file) {
    std::ofstream out(file, std::ios::binary);
    for (std::size_t i = 0; i < rows.Count(); ++i)
        out << rows.Cell(i, column) << '\n';
}

std::size_t LinesOf(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    return static_cast<std::size_t>(
        std::count(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>(), '\n'));
}

double Run(const std::string& command) {
    const Watch watch;
    if (std::system(command.c_str()) != 0) std::exit(1);
    return watch.Seconds();
}

void TimeColumn(results::ResultList& rows, results::Column column, const std::string& folder) {
    const std::string header(results::kColumns[static_cast<std::size_t>(column)].header);
    bench::Pairs pairs;
    std::vector<double> grouping;
    std::size_t groups = 0;
    for (int pair = 0; pair <= kPairs; ++pair) {
        results::RemoveSpacers(rows);
        results::SortRows(rows, results::kSearchFolderIndex, fields::SortDirection::kAscending);
        WriteKeys(rows, column, folder + "/keys");
        const double peer = Run("sort -f -o '" + folder + "/sorted' '" + folder + "/keys'");
        const Watch sorting;
        results::SortRows(rows, column, fields::SortDirection::kAscending);
        pairs.Add(sorting.Seconds(), peer);
        bench::DemandSameWork("sort by " + header, rows.Count(), LinesOf(folder + "/sorted"));
        const Watch watch;
        groups = static_cast<std::size_t>(results::GrouplstMain(rows, column));
        grouping.push_back(watch.Seconds());
    }
    results::RemoveSpacers(rows);
    fmt::print(
        "sort by {}\n  {} of  sort -f -o sorted keys\n  {} objects each; {}; grouping {:.3f} s "
        "for {} groups\n",
        header, pairs.Ratio(), rows.Count(), pairs.Times(), bench::Median(grouping), groups);
}

void Do(const session::InputResult& input) {
    if (input) return;
    fmt::print(stderr, "{}\n", input.error());
    std::exit(1);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        fmt::print(stderr,
                   "Usage: bench_list TREE FOLDER OBJECTS\nFOLDER, which is empty, takes the "
                   "files it needs; OBJECTS are in the tree.\n");
        return 2;
    }
    bench::BareProgram program(argv[2]);
    auto& session = program->Session();
    auto& form = session.frmSearch;
    Do(session::UserSet(session, form.cmbSearchFor, "*"));
    Do(session::UserSet(session, form.cmbDir, argv[1]));
    Do(session::UserSet(session, form.chkIncludeSubFolders, "1"));
    const double empty = Megabytes("VmRSS");
    const Watch search;
    Do(session::UserClick(session, form.cmdSearch));
    fmt::print("{} rows listed in {:.3f} s; peak memory {:.0f} MB over the empty program\n",
               program->Rows().Count(), search.Seconds(), Megabytes("VmHWM") - empty);
    results::RemoveSpacers(program->Rows());
    bench::DemandSameWork("list", program->Rows().Count(), std::strtoull(argv[3], nullptr, 10));
    const Watch select;
    Do(session::UserClick(session, form.cmdSelectAll));
    fmt::print("select all and BuildFileArray {:.3f} s for {} objects\n", select.Seconds(),
               program->Selection().lngSelTop + 1);
    Do(session::UserClick(session, form.cmdSelectNone));
    for (const results::Column column :
         {results::kName, results::kSize, results::kDate, results::kExt, results::kPath,
          results::kPathName, results::kPathNameLength, results::kYearRank}) {
        TimeColumn(program->Rows(), column, argv[2]);
    }
    program->Stop();
}
