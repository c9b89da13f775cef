#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tarvix::text {

// The first eight bytes of a text as a number that orders like them; a shorter one goes on with
// zeros.
inline std::uint64_t FirstEight(std::string_view text) {
    std::uint64_t bytes = 0;
    if (text.size() >= sizeof bytes) {
        std::memcpy(&bytes, text.data(), sizeof bytes);
    } else if (!text.empty()) {
        std::memcpy(&bytes, text.data(), text.size());
    }
    if constexpr (std::endian::native == std::endian::little) bytes = __builtin_bswap64(bytes);
    return bytes;
}

} // namespace tarvix::text
