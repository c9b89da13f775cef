#include "tests/machine/memory_trash.h"

#include "platform/drive_path.h"
#include "platform/try.h"
#include "text/case.h"
#include "text/paths.h"

#include <algorithm>

namespace tarvix::platform {

namespace {
std::string PathKey(std::string_view path) {
    return text::Upper(text::StripTrailingSlash(path));
}
} // namespace

Result<void> MemoryTrash::RecycleSeen(std::span<const SeenObject> objects,
                                      const TrashObserver& observer) {
    for (std::size_t done = 0; done < objects.size(); ++done) {
        const std::string path(objects[done].path);
        if (observer && !observer(done)) return TreeFailure(kInterrupted, path);
        if (objects[done].sighting.location != kAnyRoad) {
            TX_TRY(disk_.LookAtSeen(objects[done]));
        }
        TX_TRY(RecycleOne(path));
    }
    return {};
}

Result<void> MemoryTrash::RecycleOne(const std::string& path) {
    TX_TRY_ASSIGN(const std::string truePath, disk_.TruePath(path));
    const auto refusal = refused_.find(PathKey(truePath));
    if (refusal != refused_.end()) return TreeFailure(refusal->second, path);
    TX_TRY(MayTake(path));
    TX_TRY_ASSIGN(auto node, disk_.TakeAway(path));
    items_.push_back({truePath, std::static_pointer_cast<MemoryNode>(std::move(node)), taken_++});
    return {};
}

Result<void> MemoryTrash::MayTake(std::string_view path) {
    const auto parsed = ParseDrivePath(path);
    const bool hasNone = parsed && withoutTrash_.contains(text::Upper(parsed->root));
    return hasNone ? TreeFailure(kPathFileAccess, path) : Result<void>();
}

Result<void> MemoryTrash::PutBack(std::size_t number) {
    const auto item = std::ranges::find(items_, number, &Item::number);
    if (item == items_.end()) return platform::Failure(kFileNotFound, "It is not in the trash.");
    return GiveBack(item);
}

Result<void> MemoryTrash::GiveBack(Place item) {
    TX_TRY(disk_.PutBack(item->path, item->node));
    items_.erase(item);
    return {};
}

MemoryTrash::Place MemoryTrash::LastFrom(std::string_view path) {
    const std::string key = PathKey(path);
    const auto last = std::find_if(items_.rbegin(), items_.rend(), [&key](const Item& item) {
        return text::Upper(item.path) == key;
    });
    return last == items_.rend() ? items_.end() : std::prev(last.base());
}

bool MemoryTrash::Lose(std::string_view path) {
    const Place item = LastFrom(path);
    if (item == items_.end()) return false;
    items_.erase(item);
    return true;
}

std::vector<std::string> MemoryTrash::Paths() const {
    std::vector<std::string> paths;
    for (const Item& item : items_)
        paths.push_back(item.path);
    return paths;
}

Result<void> MemoryTrash::Restore(std::string_view path) {
    const Place item = LastFrom(path);
    return item == items_.end() ? TreeFailure(kFileNotFound, path) : GiveBack(item);
}

void MemoryTrash::SetHasTrash(std::string_view root, bool hasTrash) {
    if (hasTrash) {
        withoutTrash_.erase(PathKey(root));
    } else {
        withoutTrash_.insert(PathKey(root));
    }
}

void MemoryTrash::Refuse(std::string_view path, int error) {
    if (error == 0) {
        refused_.erase(PathKey(path));
    } else {
        refused_[PathKey(path)] = error;
    }
}

} // namespace tarvix::platform
