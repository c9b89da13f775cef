#include "platform/tree/tree_file_system.h"
#include "platform/try.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::platform {

namespace {
constexpr std::uint64_t kLeastStep = 4 << 20;
constexpr std::uint64_t kMostSteps = 64; // so that a sparse terabyte is copied at once
constexpr int kMostTries = 2;            // of a file that changes meanwhile
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
    return MayAdd(to, path);
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
    return CheckRoom(*place.folder, source.size, &source);
}

// A copy in no folder. The observer may have changed the source: then it is made once more.
Result<std::shared_ptr<TreeNode>> TreeFileSystem::CopyUnchanged(CopyRun& run, TreeNode& source,
                                                                std::string_view from) {
    const std::uint64_t before = run.done;
    for (int i = 0; i < kMostTries; ++i) {
        run.done = before;
        auto copy = Duplicate(source);
        if (!run.Pass(from, source.IsLink() ? 0 : source.size)) {
            return TreeFailure(kInterrupted, from);
        }
        const bool isSame = copy->modified == source.modified && copy->size == source.size &&
                            copy->content == source.content;
        if (isSame) return copy;
    }
    return TreeFailure(kPathFileAccess, from);
}

Result<void> TreeFileSystem::CopyObject(CopyRun& run, TreeNode& source, std::string_view from,
                                        const Aim& aim) {
    const auto kept = source.shared_from_this();
    TX_TRY(Fetch(source));
    if ((source.attributes & kSpecial) != 0) return TreeFailure(kPathFileAccess, from);
    TX_TRY_ASSIGN(Place place, FindTarget(aim, source));
    TX_TRY(CheckCopy(run, source, place, from, aim.path));
    TX_TRY_ASSIGN(auto copy, CopyUnchanged(run, source, from));
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

// ---- copies without a name ----

// A file stands in no folder meanwhile, a folder under a hidden name.
class TreeFileSystem::Unnamed : public UnnamedCopy {
  public:
    Unnamed(TreeFileSystem& files, std::string_view from, std::string_view to)
        : files_(files), from_(from), to_(to) {}
    ~Unnamed() override {
        if (node_ != nullptr && node_->parent != nullptr) files_.Detach(*node_);
    }
    Unnamed(const Unnamed&) = delete;
    Unnamed& operator=(const Unnamed&) = delete;

    void Hold(std::shared_ptr<TreeNode> node) { node_ = std::move(node); }
    void SetMissing(std::string missing) { missing_ = std::move(missing); }
    std::string Missing() const override { return missing_; }

    Result<void> Name() override {
        TX_TRY_ASSIGN(const Place place, files_.Walk(to_));
        if (place.node != nullptr) return TreeFailure(kAlreadyExists, to_);
        if (place.drive->IsReadOnly()) return TreeFailure(kPermissionDenied, to_);
        const auto change = node_->IsFolder() ? TreeChange::kCopyFolder : TreeChange::kCopyFile;
        if (node_->parent != nullptr) files_.Detach(*node_);
        files_.Attach(place, std::move(node_), place.name);
        files_.NoteChange(change, from_, to_);
        return {};
    }

  private:
    TreeFileSystem& files_;
    std::string from_;
    std::string to_;
    std::string missing_;
    std::shared_ptr<TreeNode> node_; // none once it has its name
};

Result<std::unique_ptr<UnnamedCopy>> TreeFileSystem::PrepareFile(std::string_view from,
                                                                 std::string_view to,
                                                                 const CopyObserver& observer) {
    BeginChange();
    TX_TRY_ASSIGN(const Place source, NeedFile(from));
    const auto kept = source.node->shared_from_this();
    TX_TRY(Fetch(*kept));
    if ((kept->attributes & kSpecial) != 0) return TreeFailure(kPathFileAccess, from);
    TX_TRY_ASSIGN(const Place place, Walk(to));
    TX_TRY(MayAdd(place, to));
    TX_TRY(CheckReadable(*kept, from));
    TX_TRY(
        CheckRoom(place.folder != nullptr ? *place.folder : *place.node, kept->size, kept.get()));
    CopyRun run{observer, false, kept->IsLink() ? 0 : kept->size};
    TX_TRY_ASSIGN(auto node, CopyUnchanged(run, *kept, from));
    auto copy = std::make_unique<Unnamed>(*this, from, to);
    copy->Hold(std::move(node));
    return copy;
}

Result<std::unique_ptr<UnnamedCopy>> TreeFileSystem::PrepareFolder(std::string_view from,
                                                                   std::string_view to,
                                                                   const CopyObserver& observer) {
    BeginChange();
    TX_TRY_ASSIGN(const Place source, NeedFolder(from));
    if (source.node->IsLink()) return PrepareFile(from, to, observer);
    TX_TRY_ASSIGN(const Place target, Walk(to));
    const bool isInto = target.folder == nullptr || target.folder->IsWithin(*source.node);
    if (isInto) return TreeFailure(kPathFileAccess, to);
    const auto kept = source.node->shared_from_this();
    CopyRun run{observer, false, observer ? SizeOfTree(*kept) : 0};
    auto copy = std::make_unique<Unnamed>(*this, from, to);
    const std::string hidden = fmt::format(".tarvix-{}.part", ++unnamed_);
    Place aside = target;
    aside.node = nullptr;
    aside.name = hidden;
    TX_TRY(CheckSubfolder(run, *kept, aside, from, to));
    TX_TRY_ASSIGN(auto made, MadeLike(*kept));
    Attach(aside, made, hidden);
    copy->Hold(made);
    TX_TRY(CopyContent(run, *kept, *made, std::string(from), std::string(to)));
    if (run.hasSkipped) {
        copy->SetMissing(fmt::format("Special files or other drives in {} can't be copied; all "
                                     "else was.",
                                     from));
    }
    return copy;
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
    if (target.node == nullptr) {
        TX_TRY_ASSIGN(const auto prepared, PrepareFolder(from, to, observer));
        return NameWhole(*prepared);
    }
    if (target.node->IsWithin(*source.node)) return TreeFailure(kPathFileAccess, to);
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
    return to.node != nullptr ? Result<void>() : MayAdd(to, path);
}

Result<void> TreeFileSystem::CopySubfolder(CopyRun& run, TreeNode& source, const Place& to,
                                           const std::string& from, const std::string& path) {
    TX_TRY(CheckSubfolder(run, source, to, from, path));
    if (to.node != nullptr) return CopyContent(run, source, *to.node, from, path);
    TX_TRY_ASSIGN(const auto made, MadeLike(source));
    Attach(to, made, to.name);
    return CopyContent(run, source, *made, from, path);
}

// An empty folder with all else of the source.
Result<std::shared_ptr<TreeNode>> TreeFileSystem::MadeLike(TreeNode& source) {
    TX_TRY(Fetch(source));
    auto made = Made(TreeKind::kFolder);
    made->attributes = source.attributes;
    made->modified = source.modified;
    made->accessed = source.accessed;
    CopyRest(source, *made);
    return made;
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
