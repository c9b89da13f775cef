#pragma once

#include "text/by_text.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::platform {

// The disk names in one folder, found without regard to case or by made short form. It knows
// nothing of the disk: whoever owns it tells what came and went.
class NameTable {
  public:
    // Room for so many names.
    void Reserve(std::size_t names);
    void Add(std::string_view nativeName);
    // False when names that differ in case alone don't let it tell which one went: then the table
    // is of no use any more.
    bool Remove(std::string_view nativeName);
    bool Rename(std::string_view from, std::string_view to);

    // The disk name that `name` (drive form) stands for: by made short form when just one has it,
    // else the first in `Dir` order that is equal but for case. Empty for none; stands until the
    // next change.
    std::string_view Find(std::string_view name);
    // Whether none of the names is equal to `nativeName` but for case.
    bool IsFree(std::string_view nativeName) const;
    // Whether one is, other than `except`.
    bool HasOther(std::string_view nativeName, std::string_view except) const;
    std::size_t Size() const { return size_; }

  private:
    // A name and the hash of its upper-case form.
    struct Slot {
        std::size_t begin = 0; // in text_
        std::uint32_t length = 0;
        std::uint32_t hash = 0;
    };

    std::string_view NameIn(const Slot& slot) const {
        return std::string_view(text_).substr(slot.begin, slot.length);
    }
    std::size_t SlotOf(std::string_view nativeName, std::uint32_t hash) const;
    // The name in its slot; empty for none.
    std::string_view Standing(std::string_view nativeName) const;
    void SetName(Slot& slot, std::string_view nativeName);
    void Put(std::string_view nativeName, std::uint32_t hash);
    void Erase(std::string_view nativeName);
    void MakeRoom();
    void MakeSlots(std::size_t count);
    void AddShort(std::string_view nativeName);
    const std::string* FindShort(std::string_view name);

    std::string text_; // the names one behind the other, and some that went
    std::vector<Slot>
        slots_;            // a power of two of them; a name is in the first free one for its hash
    std::size_t size_ = 0; // names in them
    std::size_t lost_ = 0; // bytes of names that went
    std::vector<std::string> clashing_; // behind those in the slots, but for case equal
    std::optional<text::ByText<std::string>> byShort_; // "" where two names share a form
};

} // namespace tarvix::platform
