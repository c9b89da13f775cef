#pragma once

#include <string>
#include <string_view>

// Upper and lower case, one character to one character, without regard to any locale. Invalid
// bytes stay as they are and are equal only to themselves.
namespace tarvix::text {

// The upper-case character; itself where there is none.
char32_t UpperCharacter(char32_t codePoint);

// The whole text, UTF-8, in one case.
std::string Upper(std::string_view s);
std::string Lower(std::string_view s);

// Appends the upper-case form of `s`.
void AppendUpper(std::string& out, std::string_view s);

// Whether the upper-case forms are equal.
bool EqualNoCase(std::string_view a, std::string_view b);
// Whether `s` starts with `start`, without regard to case; an empty `start` always fits.
bool StartsWithNoCase(std::string_view s, std::string_view start);

// Below, equal to or above 0: the order of the upper-case forms by code point.
int CompareNoCase(std::string_view a, std::string_view b);

// An empty needle is contained in every text.
bool ContainsNoCase(std::string_view haystack, std::string_view needle);

} // namespace tarvix::text
