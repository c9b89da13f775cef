#include "platform/seen_object.h"

#include "platform/names.h"

#include <fmt/core.h>

namespace tarvix::platform {

namespace {
// A link is one whatever it leads to, and whether that is there.
std::uint32_t KindOf(std::uint32_t attributes) {
    if ((attributes & kAlias) != 0) return kAlias;
    return attributes & (kFolder | kSpecial);
}

bool IsAfter(FileTime time, FileTime seen) {
    return time != kNoTime && time / kListedTimeStep > seen / kListedTimeStep;
}

// A number is given again when its object has gone: what was born after the look is another.
bool IsObject(const Sighting& seen, const ObjectFacts& now) {
    const ObjectIdentity& then = seen.identity;
    if (KindOf(seen.attributes) != KindOf(now.attributes)) return false;
    if (then.inode == 0 || now.identity.inode == 0) return true;
    if (then.inode != now.identity.inode || then.device != now.identity.device) return false;
    return then.changed == kNoTime || !IsAfter(now.created, then.changed);
}

// A change of rights or of the number of names is none of the content, and sets no date of content.
bool HasContent(const Sighting& seen, const ObjectFacts& now) {
    if (now.IsFolder() || now.IsLink()) return true;
    if (seen.size != now.size) return false;
    const FileTime then = seen.identity.changed;
    if (then == kNoTime || IsSameTime(then, now.identity.changed)) return true;
    return !IsAfter(now.modified, then);
}
} // namespace

bool IsSameTime(FileTime a, FileTime b) {
    return a == b || (a != kNoTime && b != kNoTime && a / kListedTimeStep == b / kListedTimeStep);
}

Result<void> CheckSame(const SeenObject& seen, const ObjectFacts& now) {
    const bool isSame = seen.same == Same::kName || !seen.sighting.IsKnown() ||
                        (IsObject(seen.sighting, now) &&
                         (seen.same == Same::kObject || HasContent(seen.sighting, now)));
    if (isSame) return {};
    return std::unexpected(
        PlatformError{kChangedSinceSearch,
                      fmt::format("{}: {}.", ForDisplay(seen.path), ErrorText(kChangedSinceSearch)),
                      std::string(seen.path)});
}

} // namespace tarvix::platform
