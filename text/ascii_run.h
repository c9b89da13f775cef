#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tarvix::text {

// The high bit of each of eight bytes: set in those that aren't ASCII.
inline constexpr std::uint64_t kHighOfEach = 0x8080808080808080U;

// Position of the first byte from `pos` on that isn't ASCII, or the end.
inline std::size_t SkipAscii(std::string_view s, std::size_t pos) {
    constexpr bool kIsLittle = std::endian::native == std::endian::little;
    for (std::uint64_t word = 0; s.size() - pos >= sizeof word; pos += sizeof word) {
        std::memcpy(&word, s.data() + pos, sizeof word);
        word &= kHighOfEach;
        if (word == 0) continue;
        const int bits = kIsLittle ? std::countr_zero(word) : std::countl_zero(word);
        return pos + static_cast<std::size_t>(bits) / 8;
    }
    while (pos < s.size() && static_cast<unsigned char>(s[pos]) < 0x80)
        ++pos;
    return pos;
}

} // namespace tarvix::text
