#include "generate/playlist_plan.h"

#include "results/result_list.h"
#include "results/year_rank.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <array>

namespace tarvix::generate {

namespace {

// Characters of the extension and its dot, the longest first; 0 for a name that has none such.
std::size_t ExtensionLength(std::string_view name) {
    constexpr std::array<std::size_t, 4> kLengths{5, 4, 3, 2};
    const std::size_t length = text::Length(name);
    for (const std::size_t wanted : kLengths) {
        if (length >= wanted && text::Mid(name, length - wanted + 1, 1) == ".") return wanted;
    }
    return 0;
}

} // namespace

std::string RankedName(std::string_view name, std::string_view headName) {
    if (!results::FindRankForm(name).empty()) return {};
    const std::string_view rank = results::FindRankForm(headName);
    const std::size_t extension = ExtensionLength(name);
    if (rank.empty() || extension == 0) return {};
    return fmt::format("{} {}{}", text::Left(name, text::Length(name) - extension), rank,
                       text::Right(name, extension));
}

PlaylistPlan ReadPlan(const results::ResultList& rows) {
    PlaylistPlan plan;
    std::string_view head;
    for (std::size_t i = 0; i < rows.Count(); ++i) {
        const results::ResultRow& row = rows.At(i);
        if (row.IsSpacer()) continue;
        if (i > 0 && rows.At(i - 1).IsSpacer()) head = row.name;
        if (row.Has(results::kReplacement)) {
            plan.renames.push_back({i, row.isFolder ? "" : RankedName(row.name, head)});
        } else if (row.selected) {
            plan.deletions.push_back(i);
        }
    }
    return plan;
}

} // namespace tarvix::generate
