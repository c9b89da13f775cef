#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>

// What shortcuts hold, and how it is read from and written into their bytes. Nothing here looks at
// a disk; all texts are UTF-8.
namespace tarvix::shortcuts {

enum class Kind : std::uint8_t { kNone, kLnk, kUrl, kDesktop };

// By the extension of a name, in any case.
Kind KindOf(std::string_view name);

// The seven values of a shortcut, in the order of their columns.
enum Field : std::uint8_t {
    kTarget,
    kArguments,
    kStartIn,
    kHotKey,
    kWindowStyle,
    kDescription,
    kIcon,
};
constexpr std::size_t kFieldCount = 7;

// As people see them: "" for what isn't there.
using Values = std::array<std::string, kFieldCount>;
// What is to be changed; all else stays as it is stored.
using Edits = std::array<std::optional<std::string>, kFieldCount>;

// Whether anything is to be changed.
bool HasEdits(const Edits& edits);
// The fields in which `wanted` differs from `old`.
Edits Differences(const Values& old, const Values& wanted);

// The whole new content, or why there is none, in a sentence for people.
using Edited = std::expected<std::string, std::string>;

// Where an icon's path ends: at the last "," of a text; npos without one.
std::size_t IconComma(std::string_view icon);

// The values that the bytes of a file of that kind hold. Broken files give what can be read of
// them.
Values Read(Kind kind, std::string_view bytes);
// Changes those values and nothing else (docs/shortcuts.md has the table of what goes with them).
// Without edits the bytes come back as they are.
Edited Edit(Kind kind, std::string_view bytes, const Edits& edits);

} // namespace tarvix::shortcuts
