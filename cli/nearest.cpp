#include "cli/nearest.h"

#include "text/case.h"

#include <fmt/core.h>

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace tarvix::cli {

namespace {

// How many bytes must be added, dropped or changed to make one text of the other.
std::size_t EditDistance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t change = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({change, diagonal + 1, row[j] + 1});
        }
    }
    return row.back();
}

} // namespace

std::string_view Nearest(std::string_view wanted, std::span<const std::string_view> known) {
    constexpr std::size_t kLongestName = 64;
    if (wanted.size() > kLongestName) return {};
    const std::string upper = text::Upper(wanted);
    std::size_t least = std::max<std::size_t>(2, wanted.size() / 3) + 1;
    std::string_view nearest;
    for (const std::string_view name : known) {
        const std::size_t distance = EditDistance(upper, text::Upper(name));
        if (distance >= least) continue;
        least = distance;
        nearest = name;
    }
    return nearest;
}

std::string Suggestion(std::string_view nearest) {
    return nearest.empty() ? "" : fmt::format(" Did you mean \"{}\"?", nearest);
}

} // namespace tarvix::cli
