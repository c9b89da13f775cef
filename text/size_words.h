#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tarvix::text {

// Bytes of a size as people write it: "4096", "20K", "1.5 GiB", "300 MB", "12 bytes". "kB" to
// "TB" are powers of 1,000, as sizes are shown; "KiB" to "TiB", and K to T alone, of 1,024; in
// either case. Only with one may there be a decimal point. Blanks around and in front of
// the unit are passed over. Empty for anything else and for more than 8 EiB.
std::optional<std::int64_t> ParseSize(std::string_view s);

} // namespace tarvix::text
