#pragma once

#include "shortcuts/formats/values.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvix::fuzz {

// Without edits the bytes stay; each value that is taken is read back, and no other changes with
// it.
inline void CheckShortcut(shortcuts::Kind kind, std::string_view bytes,
                          const std::vector<std::pair<shortcuts::Field, std::string>>& edits) {
    const shortcuts::Values old = shortcuts::Read(kind, bytes);
    if (shortcuts::Edit(kind, bytes, {}) != std::string(bytes)) std::abort();
    for (const auto& [field, value] : edits) {
        shortcuts::Edits one;
        one[field] = value;
        const auto edited = shortcuts::Edit(kind, bytes, one);
        if (!edited) continue;
        shortcuts::Values expected = old;
        expected[field] = value;
        if (shortcuts::Read(kind, *edited) != expected) std::abort();
    }
}

} // namespace tarvix::fuzz
