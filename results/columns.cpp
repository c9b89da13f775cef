#include "results/columns.h"

#include "text/case.h"

#include <algorithm>

namespace tarvix::results {

namespace {

// What people look at first stands first; the others follow by their indexes.
constexpr std::array<int, 5> kFirst{kName, kSize, kDate, kExt, kPath};

} // namespace

std::vector<int> UsualOrder() {
    std::vector<int> order(kFirst.begin(), kFirst.end());
    for (int column = 0; column < kColumnCount; ++column) {
        if (std::ranges::find(kFirst, column) == kFirst.end()) order.push_back(column);
    }
    return order;
}

bool IsOrder(const std::vector<int>& order) {
    std::vector<int> sorted = order;
    std::vector<int> usual = UsualOrder();
    std::ranges::sort(sorted);
    std::ranges::sort(usual);
    return sorted == usual;
}

bool IsChoosable(int column) {
    return column > kName && column < kShortPath;
}

bool TellsItsHeader(int column) {
    return column == kPathNameLength || column == kPathLevels || column == kSearchForEntry;
}

std::optional<Column> FindColumn(std::string_view key) {
    for (int i = 0; i < kColumnCount; ++i) {
        if (text::EqualNoCase(kColumns[static_cast<std::size_t>(i)].key, key)) {
            return static_cast<Column>(i);
        }
    }
    return std::nullopt;
}

} // namespace tarvix::results
