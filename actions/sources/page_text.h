#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvix::platform {
class ContentTypes;
}

// The bytes of web pages as text.
namespace tarvix::actions {

// The place of `sought` (upper case, ASCII) at or behind `from`, without regard to ASCII case; npos
// without one.
std::size_t FindAscii(std::string_view text, std::string_view sought, std::size_t from = 0);

// What a page is written in.
struct PageEncoding {
    enum class Kind { kUtf8, kUtf16Little, kUtf16Big, kDeclared, kUnknown };
    Kind kind = Kind::kUnknown; // UTF-8 where that is valid, else Windows-1252
    std::string charset = {};   // of kDeclared, as the page has it
    std::size_t markSize = 0;   // of the byte order mark

    bool IsWide() const { return kind == Kind::kUtf16Little || kind == Kind::kUtf16Big; }
};

// By the byte order mark, else as the first bytes of the page declare it.
PageEncoding EncodingOf(std::string_view firstBytes);

// Bytes of a page that has no mark in them, as UTF-8. Those of a set that isn't known here are
// taken as kUnknown.
std::string PageText(platform::ContentTypes& types, const PageEncoding& encoding,
                     std::string_view bytes);

// Bytes of a page of two-byte characters as UTF-8; a last byte without its second is left out, and
// so is the first half of a pair.
std::string FromWide(std::string_view bytes, bool isBig);

} // namespace tarvix::actions
