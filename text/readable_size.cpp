#include "text/readable_size.h"

#include <fmt/core.h>

#include <array>

namespace tarvix::text {

namespace {

constexpr std::array<const char*, 6> kUnits{"kB", "MB", "GB", "TB", "PB", "EB"};
constexpr std::uint64_t kStep = 1000;

} // namespace

std::string ReadableSize(std::uint64_t bytes) {
    if (bytes < kStep) return fmt::format("{} {}", bytes, bytes == 1 ? "byte" : "bytes");
    std::uint64_t unit = 1;
    for (const char* name : kUnits) {
        unit *= kStep;
        const std::uint64_t whole = bytes / unit;
        const std::uint64_t rest = bytes % unit;
        const std::uint64_t tenths = whole * 10 + (rest / (unit / 100) + 5) / 10;
        if (tenths < kStep) return fmt::format("{}.{} {}", tenths / 10, tenths % 10, name);
        const std::uint64_t rounded = whole + (rest >= unit / 2 ? 1 : 0);
        if (rounded < kStep || name == kUnits.back()) return fmt::format("{} {}", rounded, name);
    }
    return {};
}

} // namespace tarvix::text
