// The inner loops, one at a time. Absolute times: compare only runs on one machine.

#include "platform/folder_listing.h"
#include "platform/names.h"
#include "results/result_list.h"
#include "text/dates.h"
#include "text/like.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

using namespace tarvix;

void NameMatchSuffix(benchmark::State& state) {
    const text::LikePattern pattern("*.mp3", true);
    const std::string name = "07 - A song with an ordinary name.Mp3";
    for (auto _ : state) {
        benchmark::DoNotOptimize(pattern.Matches(name));
    }
}
BENCHMARK(NameMatchSuffix);

void NameToDrive(benchmark::State& state) {
    std::string out;
    for (auto _ : state) {
        out.clear();
        platform::AppendNameToDrive(out, "07 - A song with an ordinary name.mp3");
        benchmark::DoNotOptimize(out.data());
    }
}
BENCHMARK(NameToDrive);

void SortListing(benchmark::State& state) {
    platform::FolderListing unsorted;
    for (int i = 0; i < 12; ++i) {
        unsorted.Add({.name = "IMG_" + std::to_string(i * 7919 % 1000) + ".JPG"});
    }
    for (auto _ : state) {
        platform::FolderListing listing = unsorted;
        listing.SortByName();
        benchmark::DoNotOptimize(listing.Size());
    }
}
BENCHMARK(SortListing);

void FillList(benchmark::State& state) {
    for (auto _ : state) {
        results::ResultList rows;
        for (int f = 0; f < 1000; ++f) {
            results::RowFolder folder;
            folder.longPath = "C:\\home\\ann\\Music\\Album " + std::to_string(f);
            const auto* const shared = rows.AddFolder(std::move(folder));
            for (int i = 0; i < 12; ++i) {
                results::ResultRow row;
                row.name = "07 - A song with an ordinary name.mp3";
                row.folder = shared;
                rows.Add(row, "01");
            }
        }
        benchmark::DoNotOptimize(rows.Count());
    }
    state.SetItemsProcessed(state.iterations() * 12000);
}
BENCHMARK(FillList);

void CellPathName(benchmark::State& state) {
    results::ResultList rows;
    results::RowFolder folder;
    folder.longPath = "C:\\home\\ann\\Music\\Album";
    results::ResultRow row;
    row.name = "07 - A song with an ordinary name.mp3";
    row.folder = rows.AddFolder(std::move(folder));
    row.date = text::ToSeconds({2024, 5, 6, 7, 8, 9});
    rows.Add(row, "01");
    const auto column = static_cast<results::Column>(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(rows.Cell(0, column));
    }
}
BENCHMARK(CellPathName)->Arg(results::kSize)->Arg(results::kDate)->Arg(results::kPathName);

} // namespace

BENCHMARK_MAIN();
