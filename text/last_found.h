#pragma once

#include "text/by_text.h"

#include <array>
#include <string_view>

namespace tarvix::text {

// The entries of a table that were found last: objects mostly go from one folder to another, and a
// look at two texts costs less than a way through the table.
template <class Value>
class LastFound {
  public:
    using Entry = typename ByText<Value>::value_type;

    // The entry of that key; null when the table has none.
    Entry* In(ByText<Value>& table, std::string_view key) {
        for (Entry* const entry : last_) {
            if (entry != nullptr && entry->first == key) return entry;
        }
        const auto found = table.find(key);
        if (found == table.end()) return nullptr;
        last_ = {&*found, last_[0]};
        return last_[0];
    }
    // To be called before any entry goes.
    void Forget() { last_ = {}; }

  private:
    std::array<Entry*, 2> last_{};
};

} // namespace tarvix::text
