#include "platform/tree/tree_file_system.h"
#include "platform/try.h"
#include "text/paths.h"

#include <algorithm>

namespace tarvix::platform {

namespace {
constexpr std::uint64_t kLeastStep = 4 << 20;
constexpr std::uint64_t kMostSteps = 64; // so that a sparse terabyte is copied at once
} // namespace

// One CopyFile or CopyFolder call.
struct TreeFileSystem::CopyRun {
    const CopyObserver& observer;
    bool overwrite;
    std::uint64_t total;
    std::uint64_t done = 0;
    bool hasSkipped = false;

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

// Where a copy shall go: a full path, or below a folder that is being filled, where only the exact
// name counts, so that names that differ in case stay apart.
struct TreeFileSystem::Aim {
    std::string_view path;
    TreeNode* folder = nullptr;
};

Result<TreeFileSystem::Place> TreeFileSystem::FindTarget(const Aim& aim, const TreeNode& source) {
    if (aim.folder == nullptr) return Walk(aim.path);
    const TreeDrive* const drive = DriveOf(*aim.folder);
    if (drive == nullptr) return TreeFailure(kPathNotFound, aim.path);
    const std::string_view native = source.NativeName();
    return Place{drive, aim.folder, aim.folder->Child(source.name, native), source.name, native};
}

Result<void> TreeFileSystem::CheckReplace(const Place& to, const TreeNode& source, bool overwrite,
                                          std::string_view path) {
    if (to.node != nullptr) {
        if (!overwrite) return TreeFailure(kAlreadyExists, path);
        TX_TRY_ASSIGN(const ObjectFacts facts, FactsOf(*to.node));
        const bool isOther = to.node != &source && !facts.IsFolder();
        if (!isOther || (facts.attributes & kSpecial) != 0) {
            return TreeFailure(kPathFileAccess, path);
        }
        if ((facts.attributes & kReadOnly) != 0) return TreeFailure(kPermissionDenied, path);
    }
    if (to.drive->IsReadOnly()) return TreeFailure(kPermissionDenied, path);
    return {};
}

// A copy of the object alone, in no folder.
std::shared_ptr<TreeNode> TreeFileSystem::Duplicate(const TreeNode& node) const {
    auto copy = Made(node.kind);
    copy->attributes = node.attributes;
    copy->size = node.size;
    copy->modified = node.modified;
    copy->accessed = node.accessed;
    copy->content = node.content;
    copy->isHeld = node.isHeld;
    copy->name = node.name;
    CopyRest(node, *copy);
    return copy;
}

// ---- files ----

Result<void> TreeFileSystem::CheckCopy(const CopyRun& run, const TreeNode& source,
                                       const Place& place, std::string_view from,
                                       std::string_view to) {
    TX_TRY(CheckReplace(place, source, run.overwrite, to));
    TX_TRY(CheckReadable(source, from));
    return CheckRoom(*place.folder, source.size);
}

Result<void> TreeFileSystem::CopyObject(CopyRun& run, TreeNode& source, std::string_view from,
                                        const Aim& aim) {
    const auto kept = source.shared_from_this();
    TX_TRY(Fetch(source));
    if ((source.attributes & kSpecial) != 0) return TreeFailure(kPathFileAccess, from);
    TX_TRY_ASSIGN(Place place, FindTarget(aim, source));
    TX_TRY(CheckCopy(run, source, place, from, aim.path));
    auto copy = Duplicate(source);
    if (!run.Pass(from, source.IsLink() ? 0 : source.size)) {
        return TreeFailure(kInterrupted, from);
    }
    if (run.observer) { // who may have changed what stands there
        TX_TRY_ASSIGN(place, FindTarget(aim, source));
        TX_TRY(CheckReplace(place, source, run.overwrite, aim.path));
    }
    const std::string name(place.node != nullptr ? std::string_view(place.node->name) : place.name);
    Attach(place, std::move(copy), name);
    return {};
}

Result<void> TreeFileSystem::CopyFileOnly(std::string_view from, std::string_view to,
                                          bool overwrite, const CopyObserver& observer) {
    TX_TRY_ASSIGN(const Place source, NeedFile(from));
    TX_TRY(Fetch(*source.node));
    CopyRun run{observer, overwrite, source.node->IsLink() ? 0 : source.node->size};
    return CopyObject(run, *source.node, from, {to});
}

Result<void> TreeFileSystem::CopyFile(std::string_view from, std::string_view to, bool overwrite,
                                      const CopyObserver& observer) {
    BeginChange();
    TX_TRY(CopyFileOnly(from, to, overwrite, observer));
    NoteChange(TreeChange::kCopyFile, from, to);
    return {};
}

// ---- folders ----

// What can't be told counts nothing.
std::uint64_t TreeFileSystem::SizeOfTree(TreeNode& node) {
    if (node.isBoundary) return 0;
    if (!node.IsFolder()) return Fetch(node) && !node.IsLink() ? node.size : 0;
    std::uint64_t bytes = 0;
    if (WhyUnlisted(node) != 0) return bytes;
    for (const auto& [upper, child] : node.Children())
        bytes += SizeOfTree(*child);
    return bytes;
}

Result<void> TreeFileSystem::CopyFolder(std::string_view from, std::string_view to, bool overwrite,
                                        const CopyObserver& observer) {
    BeginChange();
    TX_TRY_ASSIGN(const Place source, NeedFolder(from));
    if (source.node->IsLink()) return CopyFile(from, to, overwrite, observer);
    TX_TRY_ASSIGN(const Place target, Walk(to));
    const TreeNode& inside = target.node != nullptr ? *target.node : *target.folder;
    if (inside.IsWithin(*source.node)) return TreeFailure(kPathFileAccess, to);
    const auto kept = source.node->shared_from_this();
    CopyRun run{observer, overwrite, observer ? SizeOfTree(*kept) : 0};
    TX_TRY(CheckSubfolder(run, *kept, target, from, to));
    NoteChange(TreeChange::kCopyFolder, from, to); // what is copied before a failure stays
    TX_TRY(CopySubfolder(run, *kept, target, std::string(from), std::string(to)));
    if (run.hasSkipped) return TreeFailure(kPathFileAccess, from);
    return {};
}

Result<void> TreeFileSystem::CheckSubfolder(const CopyRun& run, TreeNode& source, const Place& to,
                                            std::string_view from, std::string_view path) {
    if (to.node != nullptr && !to.node->IsFolder()) {
        return TreeFailure(run.overwrite ? kPathFileAccess : kAlreadyExists, path);
    }
    TX_TRY(ChildrenOf(source, from));
    const bool mayBeMade = to.node != nullptr || !to.drive->IsReadOnly();
    if (!mayBeMade) return TreeFailure(kPermissionDenied, path);
    return {};
}

Result<void> TreeFileSystem::CopySubfolder(CopyRun& run, TreeNode& source, const Place& to,
                                           const std::string& from, const std::string& path) {
    TX_TRY(CheckSubfolder(run, source, to, from, path));
    if (to.node != nullptr) return CopyContent(run, source, *to.node, from, path);
    TX_TRY(Fetch(source));
    const auto made = Made(TreeKind::kFolder);
    made->attributes = source.attributes;
    made->modified = source.modified;
    made->accessed = source.accessed;
    CopyRest(source, *made);
    Attach(to, made, to.name);
    return CopyContent(run, source, *made, from, path);
}

Result<void> TreeFileSystem::CopyContent(CopyRun& run, TreeNode& source, TreeNode& target,
                                         const std::string& from, const std::string& to) {
    TX_TRY(ChildrenOf(source, from));
    TX_TRY(ChildrenOf(target, to));
    const auto keptSource = source.shared_from_this();
    const auto keptTarget = target.shared_from_this();
    std::vector<std::shared_ptr<TreeNode>> children;
    children.reserve(source.Children().size());
    for (const auto& [upper, child] : source.Children())
        children.push_back(child);
    for (const auto& child : children) {
        if (child->parent != &source) continue; // gone meanwhile
        TX_TRY(CopyChild(run, *child, target, text::JoinPath(from, child->name),
                         text::JoinPath(to, child->name)));
    }
    return {};
}

Result<void> TreeFileSystem::CopyChild(CopyRun& run, TreeNode& source, TreeNode& target,
                                       const std::string& from, const std::string& to) {
    TX_TRY(Fetch(source));
    if (source.isBoundary || (source.attributes & kSpecial) != 0) {
        run.hasSkipped = true;
        return {};
    }
    const Aim aim{to, &target};
    if (!source.IsFolder()) return CopyObject(run, source, from, aim);
    TX_TRY_ASSIGN(const Place place, FindTarget(aim, source));
    return CopySubfolder(run, source, place, from, to);
}

} // namespace tarvix::platform
