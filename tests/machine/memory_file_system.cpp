#include "tests/machine/memory_file_system.h"

#include "platform/drive_path.h"
#include "platform/try.h"
#include "text/case.h"
#include "text/paths.h"

#include <algorithm>

namespace tarvix::platform {

namespace {
constexpr int kMostLinks = 40;
constexpr FileTime kStart = 1'700'000'000'000'000'000; // 2023-11-14, for disks without a clock

std::string RootKey(std::string_view root) {
    return text::Upper(text::StripTrailingSlash(root));
}

std::string DefaultMount(std::string_view root) {
    if (!root.starts_with('\\')) return "/media/" + text::Lower(root.substr(0, 1));
    std::string mount = "/mnt" + text::Lower(root.substr(1));
    std::replace(mount.begin(), mount.end(), '\\', '/');
    return mount;
}
} // namespace

MemoryFileSystem::MemoryFileSystem() : now_([] { return kStart; }) {
    AddDrive("C:", DriveType::kFixed, "ext4", "/");
}

// ---- drives ----

void MemoryFileSystem::AddDrive(std::string_view root, DriveType type, std::string_view fileSystem,
                                std::string_view nativeMount) {
    const std::string key = RootKey(root);
    TreeDrive& drive = drives_[key];
    const std::string mount = nativeMount.empty() ? DefaultMount(key) : std::string(nativeMount);
    drive.info = {key, mount, type, std::string(fileSystem), true};
    drive.top = Made(TreeKind::kFolder);
}

void MemoryFileSystem::SetReady(std::string_view root, bool isReady) {
    if (TreeDrive* drive = FindDrive(root)) drive->info.isReady = isReady;
}

void MemoryFileSystem::SetCapacity(std::string_view root, std::uint64_t bytes) {
    capacities_[RootKey(root)] = bytes;
}

std::vector<DriveInfo> MemoryFileSystem::Drives() {
    std::vector<DriveInfo> infos;
    for (const auto& [key, drive] : drives_)
        infos.push_back(drive.info);
    return infos;
}

TreeDrive* MemoryFileSystem::FindDrive(std::string_view root) {
    const auto found = drives_.find(RootKey(root));
    return found == drives_.end() ? nullptr : &found->second;
}

Result<const TreeDrive*> MemoryFileSystem::DriveNamed(std::string_view root,
                                                      std::string_view path) {
    const TreeDrive* const drive = FindDrive(root);
    if (drive == nullptr) return TreeFailure(kPathNotFound, path);
    if (!drive->info.isReady) return TreeFailure(kDiskNotReady, path);
    return drive;
}

namespace {
std::uint64_t BytesBelow(const TreeNode& node) {
    std::uint64_t bytes = node.size;
    for (const auto& [key, child] : node.Children())
        bytes += BytesBelow(*child);
    return bytes;
}
} // namespace

Result<void> MemoryFileSystem::CheckRoom(const TreeNode& node, std::uint64_t more,
                                         const TreeNode*) {
    const TreeDrive* drive = DriveOf(node);
    const auto limit = drive == nullptr ? capacities_.end() : capacities_.find(drive->info.path);
    if (limit == capacities_.end() || limit->second == kUnlimited) return {};
    const std::uint64_t used = BytesBelow(*drive->top);
    if (used <= limit->second && more <= limit->second - used) return {};
    return TreeFailure(kDiskFull, drive->info.path);
}

// ---- objects ----

std::shared_ptr<TreeNode> MemoryFileSystem::NewNode(TreeKind kind) const {
    return std::make_shared<MemoryNode>(kind);
}

void MemoryFileSystem::CopyRest(const TreeNode& from, TreeNode& to) const {
    InMemory(to).linkTarget = InMemory(from).linkTarget;
    InMemory(to).extendedAttributes = InMemory(from).extendedAttributes;
}

void MemoryFileSystem::BeforeMoving(TreeNode& node) {
    if (node.kind != TreeKind::kFile) lastFolder_ = nullptr;
}

int MemoryFileSystem::WhyUnlisted(TreeNode& folder) {
    return InMemory(folder).isUnreadable ? kPermissionDenied : 0;
}

Result<TreeNode*> MemoryFileSystem::FindUnlisted(TreeNode& folder, std::string_view name) {
    return TreeFailure(WhyUnlisted(folder), text::JoinPath(PathOf(folder), name));
}

Result<void> MemoryFileSystem::CheckReadable(const TreeNode& node, std::string_view path) {
    if (InMemory(node).isUnreadable) return TreeFailure(kPermissionDenied, path);
    return {};
}

// ---- rights ----

Result<void> MemoryFileSystem::CheckAddTo(TreeNode& folder, std::string_view path) {
    if (InMemory(folder).isLocked) return TreeFailure(kPermissionDenied, path);
    return {};
}

Result<void> MemoryFileSystem::CheckTake(TreeNode& node, std::string_view path) {
    return node.parent == nullptr ? Result<void>() : CheckAddTo(*node.parent, path);
}

Result<void> MemoryFileSystem::Ahead::MayRead(std::string_view path) {
    TX_TRY_ASSIGN(const Place place, files_.Need(path));
    return files_.CheckReadable(*place.node, path);
}

Result<void> MemoryFileSystem::Ahead::MayAddTo(std::string_view folder) {
    TX_TRY_ASSIGN(const Place place, files_.NeedFolder(folder));
    return files_.CheckAddTo(*files_.FolderAt(*place.node), folder);
}

Result<void> MemoryFileSystem::Ahead::MayTake(std::string_view path) {
    TX_TRY_ASSIGN(const Place place, files_.Need(path));
    return files_.CheckTake(*place.node, path);
}

std::optional<DiskRoom> MemoryFileSystem::Ahead::RoomIn(std::string_view folder) {
    const auto place = files_.NeedFolder(folder);
    if (!place) return std::nullopt;
    const TreeDrive& drive = *place->drive;
    const auto disk = static_cast<std::uint64_t>(drive.info.path.front());
    const auto limit = files_.capacities_.find(drive.info.path);
    if (limit == files_.capacities_.end() || limit->second == kUnlimited) {
        return DiskRoom{disk, kUnlimited};
    }
    const std::uint64_t used = BytesBelow(*drive.top);
    return DiskRoom{disk, limit->second - std::min(used, limit->second)};
}

// ---- links ----

std::string MemoryFileSystem::PathOf(const TreeNode& node) const {
    if (node.parent != nullptr) return text::JoinPath(PathOf(*node.parent), node.name);
    const TreeDrive* drive = DriveOf(node);
    return drive == nullptr ? std::string() : drive->info.path;
}

TreeNode* MemoryFileSystem::Followed(TreeNode& node) {
    if (!node.IsLink()) return &node;
    if (linksFollowed_ >= kMostLinks || node.parent == nullptr) return nullptr;
    const std::string& wanted = InMemory(node).linkTarget;
    const bool isAbsolute = ParseDrivePath(wanted).has_value();
    const std::string target = isAbsolute ? wanted : text::JoinPath(PathOf(*node.parent), wanted);
    ++linksFollowed_;
    const auto place = Walk(target);
    TreeNode* const end = place && place->node != nullptr ? Followed(*place->node) : nullptr;
    --linksFollowed_;
    return end;
}

TreeNode* MemoryFileSystem::FolderBehind(TreeNode& link) {
    TreeNode* const end = Followed(link);
    return end != nullptr && end->IsFolder() ? end : nullptr;
}

Result<TreeNode*> MemoryFileSystem::FileBehind(TreeNode& link) {
    TreeNode* const end = Followed(link);
    return end != nullptr && !end->IsFolder() ? end : nullptr;
}

Result<bool> MemoryFileSystem::Holds(std::string_view outer, std::string_view inner) {
    TX_TRY_ASSIGN(const Place holder, Need(outer));
    TX_TRY_ASSIGN(const Place held, Need(inner));
    return held.node->IsWithin(*holder.node) || Followed(*held.node) == holder.node;
}

// ---- what is recorded ----

Result<ObjectFacts> MemoryFileSystem::Facts(std::string_view path) {
    ++calls_.facts;
    return TreeFileSystem::Facts(path);
}

Result<std::unique_ptr<OpenFolder>> MemoryFileSystem::Open(std::string_view folder) {
    calls_.listed.emplace_back(folder);
    return TreeFileSystem::Open(folder);
}

Result<std::string> MemoryFileSystem::ReadBytes(std::string_view path, std::uint64_t offset,
                                                std::size_t count) {
    calls_.read.emplace_back(path);
    return TreeFileSystem::ReadBytes(path, offset, count);
}

Result<std::unique_ptr<TextStream>> MemoryFileSystem::OpenAsTextStream(std::string_view path,
                                                                       OpenMode mode) {
    auto stream = TreeFileSystem::OpenAsTextStream(path, mode);
    if (stream && mode == OpenMode::kRead) calls_.read.emplace_back(path);
    return stream;
}

void MemoryFileSystem::NoteChange(TreeChange change, std::string_view from, std::string_view to) {
    switch (change) {
    case TreeChange::kMoveFile:
    case TreeChange::kMoveFolder:
        calls_.removed.emplace_back(from);
        [[fallthrough]];
    case TreeChange::kCopyFile:
    case TreeChange::kCopyFolder:
        calls_.made.emplace_back(to);
        break;
    case TreeChange::kCreateFolder:
    case TreeChange::kWriteText:
        calls_.made.emplace_back(from);
        break;
    case TreeChange::kDeleteFile:
    case TreeChange::kRemoveFolder:
        calls_.removed.emplace_back(from);
        break;
    case TreeChange::kRecycle:
        calls_.recycled.emplace_back(from);
        break;
    case TreeChange::kSetAttributes:
        break;
    }
}

Result<void> MemoryFileSystem::PutBack(std::string_view path, std::shared_ptr<TreeNode> node) {
    TX_TRY_ASSIGN(const Place place, Walk(path));
    if (place.node != nullptr) return TreeFailure(kAlreadyExists, path);
    if (place.drive->IsReadOnly()) return TreeFailure(kPermissionDenied, path);
    TX_TRY(CheckAddTo(*place.folder, path));
    Attach(place, std::move(node), place.name);
    return {};
}

} // namespace tarvix::platform
