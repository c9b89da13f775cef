#include "cli/values.h"

#include "text/case.h"
#include "text/characters.h"

#include <array>
#include <charconv>

namespace tarvix::cli {

namespace {

// The factor of a unit, 0 for a text that is none.
std::int64_t FactorOf(std::string_view unit) {
    constexpr std::array<std::pair<std::string_view, std::int64_t>, 11> kUnits{{
        {"", 1},
        {"B", 1},
        {"K", 1 << 10},
        {"KB", 1 << 10},
        {"KIB", 1 << 10},
        {"M", 1 << 20},
        {"MB", 1 << 20},
        {"MIB", 1 << 20},
        {"G", 1 << 30},
        {"GB", 1 << 30},
        {"GIB", 1 << 30},
    }};
    for (const auto& [name, factor] : kUnits) {
        if (text::EqualNoCase(unit, name)) return factor;
    }
    return 0;
}

std::unexpected<std::string> Refusal(std::string_view option, std::string_view takes,
                                     std::string_view value) {
    std::string sentence(option);
    sentence.append(" takes ").append(takes).append(", not \"").append(value).append("\".");
    return std::unexpected(std::move(sentence));
}

} // namespace

std::expected<std::int64_t, std::string> ReadSize(std::string_view option, std::string_view value) {
    std::uint64_t number = 0;
    const char* end = value.data() + value.size();
    const auto [rest, error] = std::from_chars(value.data(), end, number);
    const std::int64_t factor = FactorOf({rest, static_cast<std::size_t>(end - rest)});
    if (error == std::errc::invalid_argument || factor == 0) {
        return Refusal(option, "a size in bytes such as 4096, 10K, 10M or 1G", value);
    }
    if (error != std::errc{} || number > static_cast<std::uint64_t>(kLargestSize / factor)) {
        return Refusal(option, "at most 2147483647 bytes, one less than 2G", value);
    }
    return static_cast<std::int64_t>(number) * factor;
}

std::expected<text::DateTime, std::string> ReadMoment(std::string_view option,
                                                      std::string_view value) {
    const auto date = text::ParseDate(value);
    if (!date || !date->HasDate()) {
        return Refusal(option, "a date such as 2026-11-15 or \"2026-11-15 19:54:52\"", value);
    }
    return *date;
}

std::expected<text::DateTime, std::string> ReadLastMoment(std::string_view option,
                                                          std::string_view value) {
    auto date = ReadMoment(option, value);
    const bool hasTime = value.find(':') != value.npos;
    if (date && !hasTime) {
        date->hour = 23;
        date->minute = date->second = 59;
    }
    return date;
}

std::optional<std::pair<std::string_view, std::string_view>> SplitRange(std::string_view value) {
    const std::size_t dots = value.find("..");
    if (dots == value.npos) return std::nullopt;
    const std::string_view first = text::Trim(value.substr(0, dots));
    const std::string_view second = text::Trim(value.substr(dots + 2));
    if (first.empty() || second.empty()) return std::nullopt;
    return std::pair{first, second};
}

} // namespace tarvix::cli
