#pragma once

#include <cstdint>
#include <string>

namespace tarvix::text {

// A size in the largest unit of which it has one: "999 bytes", "11.6 kB", "116 kB", "1.2 GB". Units
// are powers of 1,000; below 100 of a unit there is one digit behind the point, rounded.
std::string ReadableSize(std::uint64_t bytes);

} // namespace tarvix::text
