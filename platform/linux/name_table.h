#pragma once

#include "text/by_text.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::platform {

// The disk names in one folder, found without regard to case or by made short form. It knows
// nothing of the disk: whoever owns it tells what came and went.
class NameTable {
  public:
    void Add(std::string_view nativeName);
    // False when names that differ in case alone don't let it tell which one went: then the table
    // is of no use any more.
    bool Remove(std::string_view nativeName);
    bool Rename(std::string_view from, std::string_view to);

    // The disk name that `name` (drive form) stands for: by made short form when just one has it,
    // else the first in `Dir` order that is equal but for case. Null for none.
    const std::string* Find(std::string_view name);
    // Whether none of the names is equal to `nativeName` but for case.
    bool IsFree(std::string_view nativeName) const;
    // Whether one is, other than `except`.
    bool HasOther(std::string_view nativeName, std::string_view except) const;
    std::size_t Size() const { return byUpper_.size(); }

  private:
    void AddShort(std::string_view nativeName);
    const std::string* FindShort(std::string_view name);

    text::ByText<std::string> byUpper_; // disk names by their upper-case form
    std::vector<std::string> clashing_; // behind those in byUpper_, but for case equal
    std::optional<text::ByText<std::string>> byShort_; // "" where two names share a form
};

} // namespace tarvix::platform
