#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tarvix::generate {

// A number of nothing but digits, 18 at most.
std::optional<std::int64_t> ReadDigits(std::string_view text);

} // namespace tarvix::generate
