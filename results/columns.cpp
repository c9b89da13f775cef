#include "results/columns.h"

#include "text/case.h"

namespace tarvix::results {

std::optional<Column> FindColumn(std::string_view key) {
    for (int i = 0; i < kColumnCount; ++i) {
        if (text::EqualNoCase(kColumns[static_cast<std::size_t>(i)].key, key)) {
            return static_cast<Column>(i);
        }
    }
    return std::nullopt;
}

} // namespace tarvix::results
