#include "tests/machine/memory_failure.h"
#include "tests/machine/memory_file_system.h"
#include "text/paths.h"

#include <algorithm>

namespace tarvix::platform {

namespace {
constexpr std::uint64_t kLeastStep = 4 << 20;
constexpr std::uint64_t kMostSteps = 64; // so that a sparse terabyte is copied at once

std::uint64_t SizeOfTree(const MemoryNode& node) {
    std::uint64_t bytes = node.kind == MemoryKind::kFile ? node.size : 0;
    for (const auto& [key, child] : node.children)
        bytes += SizeOfTree(*child);
    return bytes;
}
} // namespace

// One CopyFile or CopyFolder call.
struct MemoryFileSystem::CopyRun {
    const CopyObserver& observer;
    bool overwrite;
    std::uint64_t total;
    std::uint64_t done = 0;
    bool skippedSpecial = false;

    // Tells of one file's bytes, at least once. False when the observer wants no more.
    bool Pass(std::string_view path, std::uint64_t size) {
        const std::uint64_t step = std::max(kLeastStep, size / kMostSteps);
        const std::uint64_t end = done + size;
        do {
            done = std::min(end, done + step);
            if (observer && !observer({path, done, total})) return false;
        } while (done < end);
        return true;
    }
};

Result<void> MemoryFileSystem::CheckReplace(const Place& to, const MemoryNode& source,
                                            bool overwrite, std::string_view path) {
    if (to.drive->IsReadOnly()) return Fail(kPermissionDenied, path);
    if (to.node == nullptr) return {};
    if (!overwrite) return Fail(kAlreadyExists, path);
    const ObjectFacts facts = FactsOf(*to.node);
    const bool isOther = to.node != &source && !facts.IsFolder();
    if (!isOther || (facts.attributes & kSpecial) != 0) return Fail(kPathFileAccess, path);
    if ((facts.attributes & kReadOnly) != 0) return Fail(kPermissionDenied, path);
    return {};
}

Result<void> MemoryFileSystem::CopyObject(CopyRun& run, MemoryNode& source, std::string_view to,
                                          const std::function<Result<Place>()>& findTarget) {
    const auto kept = source.shared_from_this();
    if (source.kind == MemoryKind::kSpecial) return Fail(kPathFileAccess, to);
    if (source.isUnreadable) return Fail(kPermissionDenied, to);
    auto place = findTarget();
    if (!place) return std::unexpected(place.error());
    if (auto can = CheckReplace(*place, source, run.overwrite, to); !can) return can;
    if (auto room = CheckRoom(*place->folder, source.size); !room) return room;
    auto copy = source.Duplicate();
    copy->created = Now();
    if (!run.Pass(PathOf(source), source.IsLink() ? 0 : source.size)) {
        return Fail(kInterrupted, to);
    }
    place = findTarget();
    if (!place) return std::unexpected(place.error());
    if (auto can = CheckReplace(*place, source, run.overwrite, to); !can) return can;
    const std::string name(place->node != nullptr ? place->node->name : std::string(place->name));
    place->folder->Attach(std::move(copy), name, source.nativeName);
    return {};
}

Result<void> MemoryFileSystem::CopyFile(std::string_view from, std::string_view to, bool overwrite,
                                        const CopyObserver& observer) {
    const auto source = NeedFile(from);
    if (!source) return std::unexpected(source.error());
    CopyRun run{observer, overwrite, source->node->IsLink() ? 0 : source->node->size};
    auto copied = CopyObject(run, *source->node, to, [&] { return NeedTarget(to); });
    if (copied) calls_.made.emplace_back(to);
    return copied;
}

Result<void> MemoryFileSystem::CopyFolder(std::string_view from, std::string_view to,
                                          bool overwrite, const CopyObserver& observer) {
    const auto source = NeedFolder(from);
    if (!source) return std::unexpected(source.error());
    if (source->node->IsLink()) return CopyFile(from, to, overwrite, observer);
    const auto target = NeedTarget(to);
    if (!target) return std::unexpected(target.error());
    const MemoryNode& inside = target->node != nullptr ? *target->node : *target->folder;
    if (inside.IsWithin(*source->node)) return Fail(kPathFileAccess, to);
    CopyRun run{observer, overwrite, SizeOfTree(*source->node)};
    calls_.made.emplace_back(to);
    const std::string path(to);
    const auto kept = source->node->shared_from_this();
    auto copied = target->folder == nullptr ? CopyContent(run, *kept, *target->node, path)
                                            : CopySubfolder(run, *kept, target->node,
                                                            *target->folder, target->name, path);
    if (copied && run.skippedSpecial) return Fail(kPathFileAccess, from);
    return copied;
}

Result<void> MemoryFileSystem::CopySubfolder(CopyRun& run, MemoryNode& source, MemoryNode* existing,
                                             MemoryNode& parent, std::string_view name,
                                             const std::string& path) {
    if (existing != nullptr) {
        if (existing->IsFolder()) return CopyContent(run, source, *existing, path);
        return Fail(run.overwrite ? kPathFileAccess : kAlreadyExists, path);
    }
    const auto made = NewNode(MemoryKind::kFolder);
    made->extendedAttributes = source.extendedAttributes;
    parent.Attach(made, name, source.nativeName);
    auto copied = CopyContent(run, source, *made, path);
    made->attributes = source.attributes;
    made->modified = source.modified;
    made->accessed = source.accessed;
    return copied;
}

Result<void> MemoryFileSystem::CopyContent(CopyRun& run, MemoryNode& source, MemoryNode& target,
                                           const std::string& path) {
    if (source.isUnreadable) return Fail(kPermissionDenied, path);
    const auto keptSource = source.shared_from_this();
    const auto keptTarget = target.shared_from_this();
    std::vector<std::shared_ptr<MemoryNode>> children;
    for (const auto& [key, child] : source.children)
        children.push_back(child);
    for (const auto& child : children) {
        if (child->parent != &source) continue; // gone meanwhile
        const std::string childPath = text::JoinPath(path, child->name);
        if (auto copied = CopyChild(run, *child, target, childPath); !copied) return copied;
    }
    return {};
}

Result<void> MemoryFileSystem::CopyChild(CopyRun& run, MemoryNode& source, MemoryNode& target,
                                         const std::string& path) {
    if (source.kind == MemoryKind::kSpecial) {
        run.skippedSpecial = true;
        return {};
    }
    // Inside a tree only the exact name counts, so that names that differ in case stay apart.
    const auto findTarget = [&]() -> Result<Place> {
        const Drive* drive = DriveOf(target);
        if (drive == nullptr) return Fail(kPathNotFound, path);
        return Place{drive, &target, target.Child(source.name, source.nativeName), source.name};
    };
    if (!source.IsFolder()) return CopyObject(run, source, path, findTarget);
    const auto place = findTarget();
    if (!place) return std::unexpected(place.error());
    return CopySubfolder(run, source, place->node, target, source.name, path);
}

Result<void> MemoryFileSystem::Rename(const Place& from, const Place& to, std::string_view toPath) {
    if (from.folder == nullptr || from.drive->IsReadOnly()) return Fail(kPermissionDenied, toPath);
    if (to.folder == nullptr) return Fail(kAlreadyExists, toPath);
    if (to.node == from.node && to.name == from.node->name) return Fail(kAlreadyExists, toPath);
    const std::string oldName = from.node->name;
    auto node = from.node->Detach();
    const bool isTaken = to.folder->Find(to.name) != nullptr;
    if (isTaken) {
        from.folder->Attach(std::move(node), oldName);
        return Fail(kAlreadyExists, toPath);
    }
    lastFolder_ = nullptr;
    to.folder->Attach(std::move(node), to.name);
    return {};
}

Result<void> MemoryFileSystem::MoveFile(std::string_view from, std::string_view to,
                                        const CopyObserver& observer) {
    auto source = NeedFile(from);
    if (!source) return std::unexpected(source.error());
    const auto target = NeedTarget(to);
    if (!target) return std::unexpected(target.error());
    const bool crosses = source->drive != target->drive;
    if (crosses && source->drive->IsReadOnly()) return Fail(kPermissionDenied, from);
    auto moved = crosses ? CopyFile(from, to, false, observer) : Rename(*source, *target, to);
    if (!moved) return moved;
    if (crosses) {
        source = NeedFile(from);
        if (!source) return std::unexpected(source.error());
        source->node->Detach();
    } else {
        calls_.made.emplace_back(to);
    }
    calls_.removed.emplace_back(from);
    return {};
}

Result<void> MemoryFileSystem::MoveFolder(std::string_view from, std::string_view to) {
    const auto source = NeedFolder(from);
    if (!source) return std::unexpected(source.error());
    const auto target = NeedTarget(to);
    if (!target) return std::unexpected(target.error());
    if (target->folder != nullptr && target->folder->IsWithin(*source->node)) {
        return Fail(kPathFileAccess, to);
    }
    if (target->node != nullptr && target->node != source->node) return Fail(kAlreadyExists, to);
    if (source->drive != target->drive) return Fail(kPermissionDenied, to);
    auto moved = Rename(*source, *target, to);
    if (!moved) return moved;
    calls_.made.emplace_back(to);
    calls_.removed.emplace_back(from);
    return {};
}

} // namespace tarvix::platform
