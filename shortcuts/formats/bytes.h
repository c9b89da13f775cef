#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarvix::shortcuts {

// Little-endian reads that never leave the bytes: what lies outside is 0 or empty.
struct Bytes {
    std::string_view all;

    std::size_t size() const { return all.size(); }
    std::uint8_t Byte(std::size_t at) const;
    std::uint16_t Word(std::size_t at) const;
    std::uint32_t DoubleWord(std::size_t at) const;
    // At most `count` bytes from `at` on.
    Bytes Part(std::size_t at, std::size_t count = std::string_view::npos) const;
    // Up to a NUL, or the end; in the code page (FromCodePage) and in UTF-16.
    std::string Text(std::size_t at) const;
    std::string WideText(std::size_t at) const;
};

// Little-endian writes: behind the end, and over bytes that must be there.
void AppendWord(std::string& out, std::uint16_t value);
void AppendDoubleWord(std::string& out, std::uint32_t value);
void PutWord(std::string& bytes, std::size_t at, std::uint16_t value);
void PutDoubleWord(std::string& bytes, std::size_t at, std::uint32_t value);

// UTF-16, little-endian, without an end. A surrogate alone, and an odd byte, becomes U+FFFD.
std::string FromUtf16(std::string_view bytes);
std::string ToUtf16(std::string_view text);

// The code page of a file is stored nowhere: UTF-8 where the bytes are that, else Windows-1252.
std::string FromCodePage(std::string_view bytes);
// Windows-1252 alone, for a part of a file of which another part is no UTF-8.
std::string FromWindows1252(std::string_view bytes);
// Windows-1252; `stand` for each character that it lacks, which `isWhole` then tells.
std::string ToCodePage(std::string_view text, char stand, bool& isWhole);

} // namespace tarvix::shortcuts
