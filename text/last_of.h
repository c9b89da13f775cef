#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

namespace tarvix::text {

// Where the last such byte of a text stands; npos for none.
inline std::size_t LastOf(std::string_view text, char wanted) {
    if (text.empty()) return text.npos;
    const void* const last = ::memrchr(text.data(), wanted, text.size());
    return last == nullptr ? text.npos
                           : static_cast<std::size_t>(static_cast<const char*>(last) - text.data());
}

} // namespace tarvix::text
