#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvix::actions {

enum class ReferencePlace : std::uint8_t { kText, kAttribute };

// A text of a page, UTF-8, with its character references ("&amp;", "&#233;", "&#xE9;") decoded, by
// the rules of web pages: old names need no ";", other names and what is none stay as they are. In
// an attribute an old name without ";" stays where a "=", letter or digit follows. Numbers that are
// no characters give U+FFFD.
std::string DecodeReferences(std::string_view text, ReferencePlace place = ReferencePlace::kText);

} // namespace tarvix::actions
