#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tarvix::text {

// A whole number of 32 bits: digits with an optional sign, blanks around allowed, no thousands
// separators. Empty for anything else.
std::optional<std::int32_t> ParseWholeNumber(std::string_view s);
// Whether ParseWholeNumber would give a value.
bool IsNumeric(std::string_view s);

// Not empty and nothing but "0" to "9".
bool IsAllDigits(std::string_view s);

// Empty, or "12:00:00 AM", as a date that was never set prints.
bool IsBlankValue(std::string_view s);
// Also true for "0".
bool IsZeroOrBlank(std::string_view s);

} // namespace tarvix::text
