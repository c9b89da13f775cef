#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

// Texts are UTF-8. Counts and positions are characters (code points), positions from 1; a byte that
// is no part of valid UTF-8 counts as one character. Views returned point into the argument.
namespace tarvix::text {

inline constexpr std::size_t kAll = std::string_view::npos;

// True when every byte is below 128, so that characters and bytes are the same.
bool IsAscii(std::string_view s);

// How many characters the text has.
std::size_t Length(std::string_view s);

// All the parts, one behind the other.
std::string Concat(std::initializer_list<std::string_view> parts);

// The first and the last `count` characters, or all of them when there are fewer.
std::string_view Left(std::string_view s, std::size_t count);
std::string_view Right(std::string_view s, std::size_t count);

// `count` characters from position `start` on; a start of 0 is taken as 1, a start past the end
// gives an empty text.
std::string_view Mid(std::string_view s, std::size_t start, std::size_t count = kAll);

// Position of the first hit at or behind `start`, and of the last hit; 0 when there is none. An
// empty `find` is found at `start` and at the last character.
std::size_t InStr(std::string_view s, std::string_view find, std::size_t start = 1);
std::size_t InStrRev(std::string_view s, std::string_view find);

// Blanks (U+0020) taken off; no other white space is touched.
std::string_view LTrim(std::string_view s);
std::string_view RTrim(std::string_view s);
std::string_view Trim(std::string_view s);

// Every hit replaced, from left to right; an empty `find` changes nothing.
std::string Replace(std::string_view s, std::string_view find, std::string_view with);

// The pieces between the separators (an ASCII character), empty ones too: n separators give n + 1
// pieces, so an empty text gives one empty piece.
std::vector<std::string_view> Split(std::string_view s, char separator);

// The text, so many times one behind the other.
std::string Repeat(std::string_view s, std::size_t times);

// Whether every byte is part of valid UTF-8; surrogates and overlong forms aren't.
bool IsValidUtf8(std::string_view s);

// Reads the character at the front of `s` and gives its bytes, 0 for an empty text. An invalid byte
// gives U+FFFD and 1.
std::size_t DecodeOne(std::string_view s, char32_t& codePoint);

// Reads the character at byte `pos` (which must lie in the text) and moves `pos` behind it. An
// invalid byte gives 0x110000 plus the byte, so that different bad bytes stay different.
char32_t NextCharacter(std::string_view s, std::size_t& pos);

// Appends one character. What is no code point is appended as U+FFFD, but a value of
// NextCharacter for an invalid byte appends that byte again.
void AppendUtf8(std::string& out, char32_t codePoint);

} // namespace tarvix::text
