#include "platform/rehearsal/rehearsal_file_system.h"
#include "text/paths.h"

namespace tarvix::platform {

// One CopyFile or CopyFolder call.
struct RehearsalFileSystem::CopyRun {
    const CopyObserver& observer;
    bool overwrite;
    std::uint64_t total;
    std::uint64_t done = 0;
    bool skippedSpecial = false;

    // Tells of one file. False when the observer wants no more.
    bool Pass(std::string_view path, std::uint64_t size) {
        done += size;
        return !observer || observer({path, done, total});
    }
};

Result<void> RehearsalFileSystem::CheckReplace(const Place& to, const RehearsalNode& source,
                                               bool overwrite, std::string_view path) {
    if (to.drive->isReadOnly) return RehearsalFailure(kPermissionDenied, path);
    if (to.node == nullptr) return {};
    if (!overwrite) return RehearsalFailure(kAlreadyExists, path);
    const auto facts = tree_.FactsOf(*to.node);
    if (!facts) return std::unexpected(facts.error());
    const bool isOther = to.node != &source && !to.node->isFolder;
    if (!isOther || (facts->attributes & kSpecial) != 0) {
        return RehearsalFailure(kPathFileAccess, path);
    }
    if ((facts->attributes & kReadOnly) != 0) return RehearsalFailure(kPermissionDenied, path);
    return {};
}

Result<void> RehearsalFileSystem::CopyObject(CopyRun& run, RehearsalNode& source, const Place& to,
                                             std::string_view path) {
    auto copy = tree_.Duplicate(source);
    if (!copy) return std::unexpected(copy.error());
    const ObjectFacts& facts = *(*copy)->facts;
    if ((facts.attributes & kSpecial) != 0) return RehearsalFailure(kPathFileAccess, path);
    if (auto can = CheckReplace(to, source, run.overwrite, path); !can) return can;
    if (!run.Pass(path, facts.IsLink() ? 0 : facts.size)) {
        return RehearsalFailure(kInterrupted, path);
    }
    std::string name(to.name);
    if (to.node != nullptr) name = tree_.Detach(*to.node)->name;
    tree_.Attach(*to.folder, std::move(*copy), name);
    return {};
}

Result<void> RehearsalFileSystem::CopyFileOnly(std::string_view from, std::string_view to,
                                               bool overwrite, const CopyObserver& observer) {
    const auto source = tree_.NeedFile(from);
    if (!source) return std::unexpected(source.error());
    const auto target = tree_.NeedTarget(to);
    if (!target) return std::unexpected(target.error());
    const auto facts = tree_.FactsOf(*source->node);
    if (!facts) return std::unexpected(facts.error());
    CopyRun run{observer, overwrite, facts->IsLink() ? 0 : facts->size};
    return CopyObject(run, *source->node, *target, from);
}

Result<void> RehearsalFileSystem::CopyFile(std::string_view from, std::string_view to,
                                           bool overwrite, const CopyObserver& observer) {
    Begin();
    auto copied = CopyFileOnly(from, to, overwrite, observer);
    if (copied) steps_.Add(RehearsedOperation::kCopyFile, from, to);
    return copied;
}

Result<std::uint64_t> RehearsalFileSystem::SizeOfTree(RehearsalNode& node) {
    if (!node.IsTrueFolder()) {
        const auto facts = tree_.FactsOf(node);
        return facts && !facts->IsLink() ? facts->size : 0;
    }
    std::uint64_t bytes = 0;
    const auto children = tree_.ChildrenOf(node);
    if (!children) return bytes;
    for (const auto& [upper, child] : (*children)->byUpper)
        bytes += SizeOfTree(*child).value_or(0);
    return bytes;
}

Result<void> RehearsalFileSystem::CopyFolder(std::string_view from, std::string_view to,
                                             bool overwrite, const CopyObserver& observer) {
    Begin();
    const auto source = tree_.NeedFolder(from);
    if (!source) return std::unexpected(source.error());
    if (source->node->isLink) return CopyFile(from, to, overwrite, observer);
    const auto target = tree_.NeedTarget(to);
    if (!target) return std::unexpected(target.error());
    const RehearsalNode& inside = target->node != nullptr ? *target->node : *target->folder;
    if (inside.IsWithin(*source->node)) return RehearsalFailure(kPathFileAccess, to);
    const std::uint64_t total = observer ? SizeOfTree(*source->node).value_or(0) : 0;
    CopyRun run{observer, overwrite, total};
    steps_.Add(RehearsedOperation::kCopyFolder, from, to);
    auto copied = CopySubfolder(run, *source->node, *target, std::string(from), std::string(to));
    if (copied && run.skippedSpecial) return RehearsalFailure(kPathFileAccess, from);
    return copied;
}

Result<void> RehearsalFileSystem::CopySubfolder(CopyRun& run, RehearsalNode& source,
                                                const Place& to, const std::string& from,
                                                const std::string& path) {
    if (to.node != nullptr) {
        if (to.node->IsTrueFolder()) return CopyContent(run, source, *to.node, from, path);
        return RehearsalFailure(run.overwrite ? kPathFileAccess : kAlreadyExists, path);
    }
    const auto facts = tree_.FactsOf(source);
    if (!facts) return std::unexpected(facts.error());
    RehearsalNode& made = tree_.Attach(*to.folder, tree_.MakeFolder(), to.name);
    made.facts->attributes |= facts->attributes;
    made.facts->modified = facts->modified;
    made.facts->accessed = facts->accessed;
    return CopyContent(run, source, made, from, path);
}

Result<void> RehearsalFileSystem::CopyContent(CopyRun& run, RehearsalNode& source,
                                              RehearsalNode& target, const std::string& from,
                                              const std::string& to) {
    const auto children = tree_.ChildrenOf(source);
    if (!children) return RehearsalFailure(children.error().number, from);
    if (const auto loaded = tree_.ChildrenOf(target); !loaded) {
        return RehearsalFailure(loaded.error().number, to);
    }
    for (const auto& [upper, child] : (*children)->byUpper) {
        auto copied = CopyChild(run, *child, target, text::JoinPath(from, child->name),
                                text::JoinPath(to, child->name));
        if (!copied) return copied;
    }
    return {};
}

Result<void> RehearsalFileSystem::CopyChild(CopyRun& run, RehearsalNode& source,
                                            RehearsalNode& target, const std::string& from,
                                            const std::string& to) {
    if (!source.isFolder) {
        const auto facts = tree_.FactsOf(source);
        if (!facts) return std::unexpected(facts.error());
        if ((facts->attributes & kSpecial) != 0) {
            run.skippedSpecial = true;
            return {};
        }
    }
    // Inside a tree only the exact name counts, so that names that differ in case stay apart.
    const auto existing = tree_.FindExact(target, source.name);
    if (!existing) return std::unexpected(existing.error());
    RehearsalTree::Drive anyDrive; // writing was allowed where the copy begins
    const Place place{&anyDrive, &target, *existing, source.name};
    if (source.IsTrueFolder()) return CopySubfolder(run, source, place, from, to);
    return CopyObject(run, source, place, from);
}

// ---- moving ----

Result<void> RehearsalFileSystem::Rename(const Place& from, const Place& to,
                                         std::string_view toPath) {
    if (from.folder == nullptr || from.drive->isReadOnly) {
        return RehearsalFailure(kPermissionDenied, toPath);
    }
    if (to.folder == nullptr) return RehearsalFailure(kAlreadyExists, toPath);
    const bool isCaseChange = to.node == from.node && to.name != from.node->name;
    if (to.node != nullptr && !isCaseChange) return RehearsalFailure(kAlreadyExists, toPath);
    const std::string oldName = from.node->name;
    auto node = tree_.Detach(*from.node);
    // A third spelling of the name may be another's.
    const auto other = tree_.Find(*to.folder, to.name);
    const bool isFree = other && *other == nullptr;
    tree_.Attach(isFree ? *to.folder : *from.folder, std::move(node), isFree ? to.name : oldName);
    if (!other) return std::unexpected(other.error());
    if (!isFree) return RehearsalFailure(kAlreadyExists, toPath);
    return {};
}

Result<void> RehearsalFileSystem::MoveFile(std::string_view from, std::string_view to,
                                           const CopyObserver& observer) {
    Begin();
    const auto source = tree_.NeedFile(from);
    if (!source) return std::unexpected(source.error());
    const auto target = tree_.NeedTarget(to);
    if (!target) return std::unexpected(target.error());
    const bool crosses = source->drive != target->drive;
    if (crosses && source->drive->isReadOnly) return RehearsalFailure(kPermissionDenied, from);
    auto moved = crosses ? CopyFileOnly(from, to, false, observer) : Rename(*source, *target, to);
    if (!moved) return moved;
    if (crosses) tree_.Detach(*source->node);
    steps_.Add(RehearsedOperation::kMoveFile, from, to);
    return {};
}

Result<void> RehearsalFileSystem::MoveFolder(std::string_view from, std::string_view to) {
    Begin();
    const auto source = tree_.NeedFolder(from);
    if (!source) return std::unexpected(source.error());
    const auto target = tree_.NeedTarget(to);
    if (!target) return std::unexpected(target.error());
    if (target->folder != nullptr && target->folder->IsWithin(*source->node)) {
        return RehearsalFailure(kPathFileAccess, to);
    }
    if (target->node != nullptr && target->node != source->node) {
        return RehearsalFailure(kAlreadyExists, to);
    }
    if (source->drive != target->drive) return RehearsalFailure(kPermissionDenied, to);
    auto moved = Rename(*source, *target, to);
    if (moved) steps_.Add(RehearsedOperation::kMoveFolder, from, to);
    return moved;
}

} // namespace tarvix::platform
