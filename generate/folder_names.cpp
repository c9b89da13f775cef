#include "generate/folder_names.h"

#include "text/case.h"
#include "text/characters.h"
#include "text/format.h"
#include "text/numbers.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::generate {

namespace {

constexpr int kPlaces = 3;
constexpr int kBase = 36;
constexpr std::string_view kDigits = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";

int ValueOf(std::string_view threePlaces) {
    int value = 0;
    for (const char c : threePlaces) {
        value = value * kBase + static_cast<int>(kDigits.find(c));
    }
    return value;
}

std::string CountedName(int value) {
    std::string name;
    for (int place = 0; place < kPlaces; ++place) {
        name.insert(name.begin(), kDigits[static_cast<std::size_t>(value % kBase)]);
        value /= kBase;
    }
    return std::string(StripLeadingZeros(name));
}

} // namespace

std::string NumberedName(std::int64_t start, std::int64_t count, std::int64_t number) {
    const std::int64_t last = start + std::max<std::int64_t>(count, 1) - 1;
    const std::size_t width = std::to_string(last).size();
    return text::Format(number, fmt::format("{}#", text::Repeat("0", width - 1)));
}

NextName NumberedNames(std::int64_t start, std::int64_t count) {
    return [start, count, next = std::int64_t{0}]() mutable -> std::optional<std::string> {
        if (next >= count) return std::nullopt;
        return NumberedName(start, count, start + next++);
    };
}

NextName CountedNames(std::string_view start, std::string_view end) {
    return [next = ValueOf(start), last = ValueOf(end)]() mutable -> std::optional<std::string> {
        if (next > last) return std::nullopt;
        return CountedName(next++);
    };
}

bool IsAlphaNumeric(std::string_view text) {
    return !text.empty() && std::ranges::all_of(text, [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    });
}

std::string ThreePlaces(std::string_view text) {
    const std::string upper = text::Upper(text);
    return text::Repeat("0", kPlaces - std::min<std::size_t>(upper.size(), kPlaces)) + upper;
}

std::string_view StripLeadingZeros(std::string_view text) {
    const std::size_t first = text.find_first_not_of('0');
    return first == text.npos ? "0" : text.substr(first);
}

std::string WhyNoFolderNumber(std::string_view answer) {
    if (text::IsBlankValue(answer)) return fmt::format("\"{}\" is not valid.", answer);
    if (!text::IsAllDigits(answer)) return fmt::format("\"{}\" is not numeric.", answer);
    if (!IsTooBig(answer)) return {};
    return fmt::format("\"{}\" is to big a number limited to 2,147,483,648", answer);
}

std::string WhyNoCountedName(std::string_view answer) {
    if (!IsAlphaNumeric(answer)) return fmt::format("\"{}\" is not alphanumeric.", answer);
    if (answer.size() <= kPlaces) return {};
    return fmt::format("\"{}\" is to long, this routine is limited to 0 through ZZZ.", answer);
}

bool IsTooBig(std::string_view digits) {
    constexpr std::string_view kMost = "2147483648";
    return digits.size() > kMost.size() || (digits.size() == kMost.size() && digits > kMost);
}

} // namespace tarvix::generate
