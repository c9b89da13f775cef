#include "generate/digits.h"

#include "text/numbers.h"

#include <charconv>

namespace tarvix::generate {

std::optional<std::int64_t> ReadDigits(std::string_view text) {
    constexpr std::size_t kMostDigits = 18;
    if (!text::IsAllDigits(text) || text.size() > kMostDigits) return std::nullopt;
    std::int64_t value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

} // namespace tarvix::generate
