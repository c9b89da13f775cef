#include "platform/rehearsal/rehearsal_file_system.h"

#include "platform/names.h"
#include "platform/rehearsal/rehearsal_node.h"
#include "platform/try.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/paths.h"

#include <algorithm>
#include <bit>
#include <chrono>

namespace tarvix::platform {

namespace {
constexpr std::size_t kFewTries = 16;

FileTime SystemNow() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

// Reads the real folder until the first change, and from then on the rehearsed one.
class RehearsalOpenFolder : public OpenFolder {
  public:
    RehearsalOpenFolder(RehearsalFileSystem& files, std::unique_ptr<OpenFolder> real,
                        std::string path)
        : files_(files), real_(std::move(real)), path_(std::move(path)) {}

    Result<void> List(FolderListing& listing) override {
        listing.Clear();
        TX_TRY_ASSIGN(OpenFolder* const folder, Now());
        return folder->List(listing);
    }

    Result<ObjectFacts> Facts(std::string_view name) override {
        TX_TRY_ASSIGN(OpenFolder* const folder, Now());
        return folder->Facts(name);
    }

  private:
    Result<OpenFolder*> Now() {
        if (!files_.HasSteps()) return real_.get();
        if (!rehearsed_) {
            TX_TRY_ASSIGN(rehearsed_, files_.OpenRehearsed(path_));
        }
        return rehearsed_.get();
    }

    RehearsalFileSystem& files_;
    std::unique_ptr<OpenFolder> real_;
    std::unique_ptr<OpenFolder> rehearsed_;
    std::string path_;
};
} // namespace

RehearsalFileSystem::RehearsalFileSystem(FileSystem& real, std::function<FileTime()> now)
    : real_(real), now_(now ? std::move(now) : std::function<FileTime()>(SystemNow)) {}

void RehearsalFileSystem::Clear() {
    ForgetRecent();
    drives_.clear();
    rooms_.clear();
    steps_.Clear();
    vainTries_ = 0;
}

// Ever more rarely, so that many refusals in a row don't read a large folder each.
void RehearsalFileSystem::BeginChange() {
    if (HasSteps()) return;
    ++vainTries_;
    if (vainTries_ > kFewTries && !std::has_single_bit(vainTries_)) return;
    ForgetRecent();
    drives_.clear();
    rooms_.clear();
}

void RehearsalFileSystem::NoteChange(TreeChange change, std::string_view from,
                                     std::string_view to) {
    steps_.Add(change, from, to);
}

// ---- looking up ----

Result<ObjectFacts> RehearsalFileSystem::Facts(std::string_view path) {
    return HasSteps() ? TreeFileSystem::Facts(path) : real_.Facts(path);
}

Result<Look> RehearsalFileSystem::LookAtSeen(const SeenObject& seen) {
    return HasSteps() ? TreeFileSystem::LookAtSeen(seen) : real_.LookAtSeen(seen);
}

Result<std::string> RehearsalFileSystem::TruePath(std::string_view path) {
    return HasSteps() ? TreeFileSystem::TruePath(path) : real_.TruePath(path);
}

Result<std::string> RehearsalFileSystem::ShortPath(std::string_view path) {
    return HasSteps() ? TreeFileSystem::ShortPath(path) : real_.ShortPath(path);
}

bool RehearsalFileSystem::IsWhereItWas(std::string_view path, const TreeNode& node) {
    const auto truePath = TruePath(path);
    return truePath && *truePath == RealPath(node);
}

Result<bool> RehearsalFileSystem::Holds(std::string_view outer, std::string_view inner) {
    if (!HasSteps()) return real_.Holds(outer, inner);
    TX_TRY_ASSIGN(const Place holder, Need(outer));
    TX_TRY_ASSIGN(const Place held, Need(inner));
    if (held.node->IsWithin(*holder.node)) return true;
    const bool isReal = IsWhereItWas(outer, *holder.node) && IsWhereItWas(inner, *held.node);
    return isReal ? real_.Holds(outer, inner) : Result<bool>(false);
}

Result<std::unique_ptr<OpenFolder>> RehearsalFileSystem::Open(std::string_view folder) {
    if (HasSteps()) return OpenRehearsed(folder);
    TX_TRY_ASSIGN(auto real, real_.Open(folder));
    return std::make_unique<RehearsalOpenFolder>(*this, std::move(real), std::string(folder));
}

Result<std::string> RehearsalFileSystem::ReadBytes(std::string_view path, std::uint64_t offset,
                                                   std::size_t count) {
    return HasSteps() ? TreeFileSystem::ReadBytes(path, offset, count)
                      : real_.ReadBytes(path, offset, count);
}

Result<std::unique_ptr<TextStream>> RehearsalFileSystem::OpenAsTextStream(std::string_view path,
                                                                          OpenMode mode) {
    const bool isReal = mode == OpenMode::kRead && !HasSteps();
    return isReal ? real_.OpenAsTextStream(path, mode)
                  : TreeFileSystem::OpenAsTextStream(path, mode);
}

// ---- what is read through ----

Result<const TreeDrive*> RehearsalFileSystem::DriveNamed(std::string_view root, std::string_view) {
    std::string key = text::Upper(root);
    const auto known = drives_.find(key);
    if (known != drives_.end()) return &known->second;
    const std::string path = text::Concat({key, "\\"});
    TX_TRY(real_.Facts(path));
    TreeDrive drive;
    for (const DriveInfo& info : real_.Drives()) {
        if (text::EqualNoCase(info.path, key)) drive.info = info;
    }
    drive.top = NewNode(TreeKind::kFolder);
    drive.top->isHeld = false;
    Rehearsed(*drive.top).isMade = false;
    Rehearsed(*drive.top).origin = std::make_unique<std::string>(path);
    return &drives_.emplace(std::move(key), std::move(drive)).first->second;
}

// Most paths are followed by others in the same folder.
Result<RehearsalFileSystem::Place> RehearsalFileSystem::Walk(std::string_view path) {
    const std::size_t slash = path.rfind('\\');
    const std::string_view folderPath = path.substr(0, std::min(slash, path.size()));
    const std::string_view last = slash == path.npos ? path : path.substr(slash + 1);
    if (slash != path.npos && CanBeName(last)) {
        const auto known = std::ranges::find(recent_, folderPath, &Recent::path);
        if (known != recent_.end() && known->folder != nullptr) {
            return Below(known->drive, *known->folder, last, path);
        }
    }
    auto place = TreeFileSystem::Walk(path);
    if (place && place->folder != nullptr && place->name == last) {
        recent_[nextRecent_] = {std::string(folderPath), place->drive, place->folder};
        nextRecent_ = (nextRecent_ + 1) % recent_.size();
    }
    return place;
}

void RehearsalFileSystem::Load(RehearsalNode& folder) {
    folder.children = std::make_unique<TreeChildren>();
    const std::string path = RealPath(folder);
    if (path.empty()) return;
    FolderListing listing;
    const auto opened = real_.Open(path);
    const auto listed = opened ? (*opened)->List(listing) : std::unexpected(opened.error());
    // Those that look alike can't be told apart, and nothing can be asked of them.
    if (!listed && !folder.nativeName) folder.failure = listed.error().number;
    std::size_t strange = 0;
    for (std::size_t i = 0; i < listing.Size(); ++i) {
        const FolderEntry entry = listing[i];
        const bool isFolder = entry.isFolder && !entry.isLink;
        const TreeKind kind = entry.isLink ? TreeKind::kLink
                              : isFolder   ? TreeKind::kFolder
                                           : TreeKind::kFile;
        auto node = std::make_shared<RehearsalNode>(kind);
        node->isHeld = false;
        node->isLinkToFolder = entry.isLink && entry.isFolder;
        node->isBoundary = entry.isBoundary;
        const bool canBeOpened = CanBeName(entry.name);
        folder.Attach(std::move(node), entry.name,
                      canBeOpened ? std::string() : std::to_string(++strange));
    }
}

int RehearsalFileSystem::WhyUnlisted(TreeNode& folder) {
    if (!folder.children) Load(Rehearsed(folder));
    return Rehearsed(folder).failure;
}

// A folder that can't be listed may still give an object by its exact name.
Result<TreeNode*> RehearsalFileSystem::FindUnlisted(TreeNode& folder, std::string_view name) {
    if (TreeNode* const known = folder.Child(name)) return known;
    const auto facts = real_.Facts(text::JoinPath(RealPath(folder), name));
    if (!facts && facts.error().number == kFileNotFound) return nullptr;
    if (!facts) return std::unexpected(facts.error());
    const bool isFolder = facts->IsFolder() && !facts->IsLink();
    auto node = std::make_shared<RehearsalNode>(facts->IsLink() ? TreeKind::kLink
                                                : isFolder      ? TreeKind::kFolder
                                                                : TreeKind::kFile);
    node->isHeld = false;
    node->isLinkToFolder = facts->IsLink() && facts->IsFolder();
    folder.Attach(node, name);
    return node.get();
}

Result<void> RehearsalFileSystem::Fetch(TreeNode& node) {
    RehearsalNode& own = Rehearsed(node);
    if (own.hasFacts || own.isMade) return {};
    const std::string path = RealPath(node);
    auto facts = real_.Facts(path);
    if (!facts && own.nativeName) facts = ObjectFacts{kArchive, 0, Now(), kNoTime, Now()};
    if (!facts) return std::unexpected(facts.error());
    own.attributes = facts->attributes & ~std::uint32_t{kFolder | kAlias};
    if (text::FileNameOf(path).starts_with('.')) own.attributes &= ~std::uint32_t{kHidden};
    own.size = facts->size;
    own.modified = facts->modified;
    own.created = facts->created;
    own.accessed = facts->accessed;
    own.identity = facts->identity;
    own.hasFacts = true;
    return {};
}

TreeNode* RehearsalFileSystem::FolderBehind(TreeNode& link) {
    return Rehearsed(link).isLinkToFolder ? &link : nullptr;
}

Result<TreeNode*> RehearsalFileSystem::FileBehind(TreeNode& link) {
    if (Rehearsed(link).isLinkToFolder) return nullptr;
    if (!link.isHeld) TX_TRY(real_.ReadBytes(RealPath(link), 0, 0));
    return &link;
}

Result<std::string> RehearsalFileSystem::BytesOf(TreeNode& file, std::uint64_t offset,
                                                 std::size_t count) {
    return file.isHeld ? file.Bytes(offset, count) : real_.ReadBytes(RealPath(file), offset, count);
}

// ---- what the real one foresees ----

Result<void> RehearsalFileSystem::CheckReadable(const TreeNode& file, std::string_view path) {
    const std::string real = file.isHeld || file.IsLink() ? std::string() : RealPath(file);
    if (real.empty() || real_.Foresee().MayRead(real)) return {};
    return TreeFailure(kPermissionDenied, path);
}

// What was made here takes names; what was moved here is what it was.
Result<void> RehearsalFileSystem::CheckAddTo(TreeNode& folder, std::string_view path) {
    RehearsalNode& own = Rehearsed(folder);
    if (!own.refusal) {
        const std::string real = RealPath(folder);
        const auto may = real.empty() ? Result<void>() : real_.Foresee().MayAddTo(real);
        own.refusal = may ? 0 : may.error().number;
    }
    if (*own.refusal != kPermissionDenied) return {};
    return TreeFailure(kPermissionDenied, path);
}

Result<void> RehearsalFileSystem::CheckTake(TreeNode& node, std::string_view path) {
    const bool liesThere = !Rehearsed(node).origin && !Rehearsed(node).isMade;
    const std::string real = liesThere ? RealPath(node) : std::string();
    if (real.empty()) {
        return node.parent == nullptr ? Result<void>() : CheckAddTo(*node.parent, path);
    }
    const auto may = real_.Foresee().MayTake(real);
    if (may || may.error().number != kPermissionDenied) return {};
    return TreeFailure(kPermissionDenied, path);
}

std::uint64_t RehearsalFileSystem::DiskOf(const TreeNode& folder) {
    const RehearsalNode& own = Rehearsed(folder);
    if (own.disk) return *own.disk;
    const std::string real = RealPath(folder);
    std::uint64_t disk = 0;
    if (const auto room = real.empty() ? std::nullopt : real_.Foresee().RoomIn(real)) {
        disk = room->disk;
        rooms_.emplace(disk, *room);
    } else if (real.empty() && own.parent != nullptr) {
        disk = DiskOf(*own.parent);
    }
    own.disk = disk;
    return disk;
}

Result<void> RehearsalFileSystem::CheckRoom(const TreeNode& folder, std::uint64_t more,
                                            const TreeNode* source) {
    const bool hasHoles = source != nullptr && (source->attributes & kSparse) != 0;
    if (hasHoles || (source != nullptr && source->IsLink())) return {};
    const std::uint64_t disk =
        DiskOf(folder.IsFolder() || folder.parent == nullptr ? folder : *folder.parent);
    const auto room = rooms_.find(disk);
    if (room == rooms_.end()) return {};
    DiskRoom& left = room->second;
    const bool isShared = left.sharesBlocks && source != nullptr && source->parent != nullptr &&
                          DiskOf(*source->parent) == disk;
    if (isShared) return {};
    if (more > left.bytes) return TreeFailure(kDiskFull, folder.name);
    left.bytes -= more;
    return {};
}

bool RehearsalFileSystem::IsOneDisk(const Place& from, const Place& to) {
    if (from.drive != to.drive) return false;
    if (from.folder == nullptr || to.folder == nullptr || from.folder == to.folder) return true;
    const std::uint64_t disk = DiskOf(*from.folder);
    const std::uint64_t other = DiskOf(*to.folder);
    return disk == 0 || other == 0 || disk == other;
}

// ---- objects ----

std::shared_ptr<TreeNode> RehearsalFileSystem::NewNode(TreeKind kind) const {
    auto node = std::make_shared<RehearsalNode>(kind);
    node->isMade = true;
    return node;
}

// A copied folder gets its objects one by one.
void RehearsalFileSystem::CopyRest(const TreeNode& from, TreeNode& to) const {
    if (from.IsFolder()) return;
    std::string real = RealPath(from);
    Rehearsed(to).isMade = real.empty();
    Rehearsed(to).hasFacts = true;
    Rehearsed(to).isLinkToFolder = Rehearsed(from).isLinkToFolder;
    if (!real.empty()) Rehearsed(to).origin = std::make_unique<std::string>(std::move(real));
}

void RehearsalFileSystem::BeforeMoving(TreeNode& node) {
    RehearsalNode& own = Rehearsed(node);
    if (own.parent != nullptr && !own.origin && !own.isMade) {
        own.origin = std::make_unique<std::string>(RealPath(node));
    }
    if (own.IsFolder() || own.IsLink()) ForgetRecent();
}

} // namespace tarvix::platform
