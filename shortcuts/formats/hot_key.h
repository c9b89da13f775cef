#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvix::shortcuts {

// A hot key as text, "CTRL+ALT+F5": modifiers CTRL, ALT, SHIFT, EXT, then the key; a key without a
// name as "0x" and two digits. Empty for 0.
std::string HotKeyText(std::uint16_t hotKey);
// The number of such a text, with modifiers in any order and case and blanks around "+"; 0 for a
// blank. None for another text and for "[" and "]", which are no keys to type here.
std::optional<std::uint16_t> ParseHotKey(std::string_view text);

// "Normal", "Maximized", "Minimized" for 1, 3, 7; empty for any other number.
std::string_view WindowStyleText(std::uint32_t style);
// The number of such a text, exactly; none for another.
std::optional<std::uint32_t> ParseWindowStyle(std::string_view text);

} // namespace tarvix::shortcuts
