#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

// The names of folders to be made, one after the other.
namespace tarvix::generate {

// Gives the next name, and nothing behind the last one.
using NextName = std::function<std::optional<std::string>()>;

// `count` numbers from `start` on, all as long as the last one.
NextName NumberedNames(std::int64_t start, std::int64_t count);
// One of those numbers.
std::string NumberedName(std::int64_t start, std::int64_t count, std::int64_t number);

// Counted by the digits 0 to 9 and A to Z, from one to another, both of three of them; without
// leading zeros. Nothing when the end lies before the start.
NextName CountedNames(std::string_view start, std::string_view end);

// Not empty and nothing but digits and the letters A to Z, in either case.
bool IsAlphaNumeric(std::string_view text);
// Upper case, with zeros in front to three characters.
std::string ThreePlaces(std::string_view text);
// Without zeros in front; "0" for nothing but zeros.
std::string_view StripLeadingZeros(std::string_view text);

// What is wrong with an answer as a number for folders, in a sentence; empty when it is one.
std::string WhyNoFolderNumber(std::string_view answer);
// The same for the first or last counted name.
std::string WhyNoCountedName(std::string_view answer);
// Whether the number, as its text, is more than 2147483648.
bool IsTooBig(std::string_view digits);

} // namespace tarvix::generate
