#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tarvix::text {

// Bytes of a size as people write it: "4096", "20K", "1.5 GiB", "300 MB", "12 bytes". Units from K
// to T are binary, in either case, "B" or "iB" behind them allowed; only with one may there be a
// decimal point. Blanks around and in front of the unit are passed over. Empty for anything else
// and for more than 8 EiB.
std::optional<std::int64_t> ParseSize(std::string_view s);

} // namespace tarvix::text
