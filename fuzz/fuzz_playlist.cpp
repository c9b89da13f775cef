#include "fuzz/fuzz_fixture.h"
#include "generate/playlist_load.h"
#include "generate/playlist_plan.h"
#include "results/result_list.h"
#include "results/year_rank.h"

#include <string>

// A playlist from anywhere, the rows that it makes, and what its marks ask for. The first byte
// chooses the marks.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvix;
    if (size == 0) return 0;
    static fuzz::Fixture fixture; // most of the time would go into making it
    auto& session = fixture.session;
    static results::ResultList rows;
    rows.Clear();
    fixture.machine.faults.ResetCounts(); // it keeps every call
    session.rows = &rows;
    session.state.platformSettings.listsAreNative = (data[0] & 1) != 0;
    fixture.machine.disk.AddFile("C:\\m\\Song.mp3", "x");
    fixture.machine.disk.AddFile("C:\\m\\1987-042 Best.mp3", "x");
    fixture.Put("C:\\m\\p.m3u", data + 1, size - 1);
    generate::OpenPlayListFile(session, "C:\\m\\p.m3u", "C:\\m");
    for (std::size_t i = 0; i < rows.Count(); ++i) {
        results::ResultRow& row = rows.At(i);
        fuzz::Require(row.IsSpacer() || row.Has(results::kListed));
        const bool isBelowSpacer = i > 0 && rows.At(i - 1).IsSpacer();
        fuzz::Require(row.IsSpacer() || row.Has(results::kEntry) == isBelowSpacer);
        if (row.IsSpacer()) continue;
        fuzz::Require(!rows.FullPath(i).empty());
        for (const auto column : {results::kName, results::kSize, results::kDate, results::kPath,
                                  results::kPathName, results::kShortPath}) {
            (void)rows.Cell(i, column);
        }
        if ((i + data[0]) % 3 == 0) row.marks |= results::kReplacement;
        row.selected = (i + data[0]) % 3 == 1;
    }
    const generate::PlaylistPlan plan = generate::ReadPlan(rows);
    for (const generate::PlaylistRename& rename : plan.renames) {
        fuzz::Require(rename.newName.empty() || !results::FindRankForm(rename.newName).empty());
        fuzz::Require(rename.newName.find('\\') == std::string::npos);
    }
    fuzz::Require(fixture.machine.disk.Exists("C:\\m\\Song.mp3"));
    return 0;
}
