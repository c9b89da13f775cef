#include "platform/linux/name_table.h"

#include "platform/names.h"
#include "platform/short_names.h"
#include "text/case.h"

#include <algorithm>

namespace tarvix::platform {

namespace {
// What is looked for is mostly added next.
const std::string& UpperOf(std::string_view nativeName) {
    static thread_local std::string name;
    static thread_local std::string upper;
    if (name == nativeName) return upper;
    name = nativeName;
    upper.clear();
    text::AppendUpper(upper, nativeName);
    return upper;
}
} // namespace

void NameTable::Add(std::string_view nativeName) {
    const auto [entry, isNew] = byUpper_.try_emplace(UpperOf(nativeName), nativeName);
    if (!isNew) {
        const bool isKnown = entry->second == nativeName ||
                             std::ranges::find(clashing_, nativeName) != clashing_.end();
        if (isKnown) return;
        clashing_.emplace_back(nativeName);
        if (NameToDrive(nativeName) < NameToDrive(entry->second)) {
            entry->second.swap(clashing_.back());
        }
    }
    if (byShort_) AddShort(nativeName);
}

void NameTable::AddShort(std::string_view nativeName) {
    const std::string made = text::Upper(ShortNameOf(NameToDrive(nativeName)));
    const auto [entry, isNew] = byShort_->try_emplace(made, nativeName);
    if (!isNew && entry->second != nativeName) entry->second.clear();
}

bool NameTable::Remove(std::string_view nativeName) {
    if (!clashing_.empty()) return false;
    byUpper_.erase(text::Upper(nativeName));
    byShort_.reset();
    return true;
}

bool NameTable::Rename(std::string_view from, std::string_view to) {
    if (!clashing_.empty()) return false;
    byShort_.reset();
    auto entry = byUpper_.extract(text::Upper(from));
    const std::string& upper = UpperOf(to);
    if (!entry || byUpper_.contains(upper)) {
        Add(to);
        return true;
    }
    entry.key() = upper;
    entry.mapped() = to;
    byUpper_.insert(std::move(entry));
    return true;
}

const std::string* NameTable::FindShort(std::string_view name) {
    if (!byShort_) {
        byShort_.emplace();
        for (const auto& [upper, native] : byUpper_)
            AddShort(native);
        for (const std::string& native : clashing_)
            AddShort(native);
    }
    const auto found = byShort_->find(text::Upper(name));
    return found == byShort_->end() ? nullptr : &found->second;
}

const std::string* NameTable::Find(std::string_view name) {
    if (LooksLikeMadeShortName(name)) {
        const std::string* const native = FindShort(name);
        if (native != nullptr) return native->empty() ? nullptr : native;
    }
    const auto found = byUpper_.find(text::Upper(NameToNative(name)));
    return found == byUpper_.end() ? nullptr : &found->second;
}

bool NameTable::IsFree(std::string_view nativeName) const {
    return !byUpper_.contains(UpperOf(nativeName));
}

bool NameTable::HasOther(std::string_view nativeName, std::string_view except) const {
    const std::string upper = text::Upper(nativeName);
    const auto found = byUpper_.find(upper);
    if (found != byUpper_.end() && found->second != except) return true;
    return std::ranges::any_of(clashing_, [&](const std::string& other) {
        return other != except && text::Upper(other) == upper;
    });
}

} // namespace tarvix::platform
