#include "platform/linux/name_table.h"

#include "platform/names.h"
#include "platform/short_names.h"
#include "text/case.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace tarvix::platform {

namespace {
constexpr std::size_t kFewestSlots = 8;
constexpr std::size_t kMostLost = 4096;

// The hash of a name that was looked for, since that is mostly what is put there next.
struct Hashed {
    std::string name;
    std::uint32_t hash = 0;
};
thread_local Hashed lastWanted;

// Of the upper-case form.
std::uint32_t HashOf(std::string_view nativeName) {
    static thread_local std::string upper;
    if (!nativeName.empty() && lastWanted.name == nativeName) return lastWanted.hash;
    upper.clear();
    text::AppendUpper(upper, nativeName);
    return static_cast<std::uint32_t>(text::TextHash()(upper));
}

std::uint32_t HashOfWanted(std::string_view nativeName) {
    lastWanted.hash = HashOf(nativeName);
    lastWanted.name = nativeName;
    return lastWanted.hash;
}
} // namespace

// ---- slots ----

// That of the name that is equal but for case, else the free one for it.
std::size_t NameTable::SlotOf(std::string_view nativeName, std::uint32_t hash) const {
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
        const Slot& slot = slots_[at];
        if (slot.length == 0) return at;
        if (slot.hash == hash && text::EqualNoCase(NameIn(slot), nativeName)) return at;
    }
}

std::string_view NameTable::Standing(std::string_view nativeName) const {
    return size_ == 0 ? std::string_view()
                      : NameIn(slots_[SlotOf(nativeName, HashOfWanted(nativeName))]);
}

void NameTable::SetName(Slot& slot, std::string_view nativeName) {
    lost_ += slot.length;
    slot.begin = text_.size();
    slot.length = static_cast<std::uint32_t>(nativeName.size());
    text_ += nativeName;
}

void NameTable::MakeSlots(std::size_t count) {
    const auto old = std::exchange(slots_, {});
    slots_.resize(std::max(kFewestSlots, count));
    const std::size_t mask = slots_.size() - 1;
    for (const Slot& slot : old) {
        if (slot.length == 0) continue;
        std::size_t at = slot.hash & mask;
        while (slots_[at].length != 0)
            at = (at + 1) & mask;
        slots_[at] = slot;
    }
}

void NameTable::Reserve(std::size_t names) {
    const std::size_t count = std::bit_ceil(2 * names);
    if (count > slots_.size()) MakeSlots(count);
}

// At least a quarter of the slots stays free, and not much more than half of the text is lost.
void NameTable::MakeRoom() {
    if (size_ + size_ / 3 + 1 >= slots_.size()) MakeSlots(4 * slots_.size());
    if (lost_ <= std::max(kMostLost, text_.size() / 2)) return;
    const std::string old = std::exchange(text_, {});
    text_.reserve(old.size());
    for (Slot& slot : slots_) {
        const std::size_t begin = std::exchange(slot.begin, text_.size());
        text_.append(old, begin, slot.length);
    }
    lost_ = 0;
}

// What stands behind it moves up where it couldn't be found any more behind a free slot.
void NameTable::Erase(std::string_view nativeName) {
    if (size_ == 0) return;
    const std::size_t mask = slots_.size() - 1;
    std::size_t free = SlotOf(nativeName, HashOf(nativeName));
    if (slots_[free].length == 0) return;
    lost_ += slots_[free].length;
    --size_;
    for (std::size_t at = (free + 1) & mask; slots_[at].length != 0; at = (at + 1) & mask) {
        const std::size_t wanted = slots_[at].hash & mask;
        if (((at - wanted) & mask) < ((at - free) & mask)) continue;
        slots_[free] = slots_[at];
        free = at;
    }
    slots_[free] = {};
}

// ---- names ----

void NameTable::Add(std::string_view nativeName) {
    Put(nativeName, HashOf(nativeName));
}

void NameTable::Put(std::string_view nativeName, std::uint32_t hash) {
    MakeRoom();
    Slot& slot = slots_[SlotOf(nativeName, hash)];
    if (slot.length == 0) {
        slot.hash = hash;
        SetName(slot, nativeName);
        ++size_;
    } else {
        const std::string known(NameIn(slot));
        const bool isKnown =
            known == nativeName || std::ranges::find(clashing_, nativeName) != clashing_.end();
        if (isKnown) return;
        const bool isFirst = NameToDrive(nativeName) < NameToDrive(known);
        if (isFirst) SetName(slot, nativeName);
        clashing_.emplace_back(isFirst ? known : nativeName);
    }
    if (byShort_) AddShort(nativeName);
}

bool NameTable::Remove(std::string_view nativeName) {
    if (!clashing_.empty()) return false;
    Erase(nativeName);
    byShort_.reset();
    return true;
}

bool NameTable::Rename(std::string_view from, std::string_view to) {
    const std::uint32_t hash = HashOf(to);
    if (!Remove(from)) return false;
    Put(to, hash);
    return true;
}

void NameTable::AddShort(std::string_view nativeName) {
    const std::string made = text::Upper(ShortNameOf(NameToDrive(nativeName)));
    const auto [entry, isNew] = byShort_->try_emplace(made, nativeName);
    if (!isNew && entry->second != nativeName) entry->second.clear();
}

const std::string* NameTable::FindShort(std::string_view name) {
    if (!byShort_) {
        byShort_.emplace();
        for (const Slot& slot : slots_) {
            if (slot.length != 0) AddShort(NameIn(slot));
        }
        for (const std::string& native : clashing_)
            AddShort(native);
    }
    const auto found = byShort_->find(text::Upper(name));
    return found == byShort_->end() ? nullptr : &found->second;
}

std::string_view NameTable::Find(std::string_view name) {
    if (LooksLikeMadeShortName(name)) {
        const std::string* const native = FindShort(name);
        if (native != nullptr) return *native;
    }
    return Standing(NameToNative(name));
}

bool NameTable::IsFree(std::string_view nativeName) const {
    return Standing(nativeName).empty();
}

bool NameTable::HasOther(std::string_view nativeName, std::string_view except) const {
    const std::string_view standing = Standing(nativeName);
    if (!standing.empty() && standing != except) return true;
    return std::ranges::any_of(clashing_, [&](const std::string& other) {
        return other != except && text::EqualNoCase(other, nativeName);
    });
}

} // namespace tarvix::platform
