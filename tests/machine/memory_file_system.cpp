#include "tests/machine/memory_file_system.h"

#include "platform/drive_path.h"
#include "platform/names.h"
#include "platform/short_names.h"
#include "tests/machine/memory_failure.h"
#include "tests/machine/memory_text_stream.h"
#include "text/case.h"
#include "text/paths.h"

#include <algorithm>

namespace tarvix::platform {

namespace {
constexpr int kMostLinks = 40;
constexpr std::uint32_t kSettable = kReadOnly | kHidden | kSystem | kArchive;
constexpr FileTime kStart = 1'700'000'000'000'000'000; // 2023-11-14, for disks without a clock

bool IsTooLong(std::string_view name) {
    return name.size() > kLongestName && NameToNative(name).size() > kLongestName;
}

std::string RootKey(std::string_view root) {
    return text::Upper(text::StripTrailingSlash(root));
}

std::string DefaultMount(std::string_view root) {
    if (!root.starts_with('\\')) return "/media/" + text::Lower(root.substr(0, 1));
    std::string mount = "/mnt" + text::Lower(root.substr(1));
    std::replace(mount.begin(), mount.end(), '\\', '/');
    return mount;
}

class MemoryOpenFolder : public OpenFolder {
  public:
    MemoryOpenFolder(MemoryFileSystem& files, MemoryNode& folder, std::string path)
        : files_(files), folder_(folder.shared_from_this()), path_(std::move(path)) {}

    Result<void> List(FolderListing& listing) override {
        listing.Clear();
        if (!files_.IsOnDisk(*folder_)) return Fail(kPathNotFound, path_);
        for (const auto& [key, node] : folder_->children) {
            listing.Add(
                {node->name, files_.FactsOf(*node).IsFolder(), node->IsLink(), node->isBoundary});
        }
        return {};
    }

    Result<ObjectFacts> Facts(std::string_view name) override {
        if (!CanBeName(name)) return Fail(kBadFileName, text::JoinPath(path_, name));
        MemoryNode* node = folder_->Child(name);
        if (node == nullptr) return Fail(kFileNotFound, text::JoinPath(path_, name));
        return files_.FactsOf(*node);
    }

  private:
    MemoryFileSystem& files_;
    std::shared_ptr<MemoryNode> folder_;
    std::string path_;
};
} // namespace

MemoryFileSystem::MemoryFileSystem() : now_([] { return kStart; }) {
    AddDrive("C:", DriveType::kFixed, "ext4", "/");
}

MemoryFileSystem::~MemoryFileSystem() = default;

// ---- drives and the tree ----

void MemoryFileSystem::AddDrive(std::string_view root, DriveType type, std::string_view fileSystem,
                                std::string_view nativeMount) {
    const std::string key = RootKey(root);
    Drive& drive = drives_[key];
    const std::string mount = nativeMount.empty() ? DefaultMount(key) : std::string(nativeMount);
    drive.info = {key, mount, type, std::string(fileSystem), true};
    drive.root = NewNode(MemoryKind::kFolder);
}

void MemoryFileSystem::SetReady(std::string_view root, bool isReady) {
    if (Drive* drive = FindDrive(root)) drive->info.isReady = isReady;
}

void MemoryFileSystem::SetCapacity(std::string_view root, std::uint64_t bytes) {
    if (Drive* drive = FindDrive(root)) drive->capacity = bytes;
}

std::vector<DriveInfo> MemoryFileSystem::Drives() {
    std::vector<DriveInfo> infos;
    for (const auto& [key, drive] : drives_)
        infos.push_back(drive.info);
    return infos;
}

MemoryFileSystem::Drive* MemoryFileSystem::FindDrive(std::string_view root) {
    const auto found = drives_.find(RootKey(root));
    return found == drives_.end() ? nullptr : &found->second;
}

const MemoryFileSystem::Drive* MemoryFileSystem::DriveOf(const MemoryNode& node) const {
    const MemoryNode* top = &node;
    while (top->parent != nullptr)
        top = top->parent;
    for (const auto& [key, drive] : drives_) {
        if (drive.root.get() == top) return &drive;
    }
    return nullptr;
}

std::string MemoryFileSystem::PathOf(const MemoryNode& node) const {
    if (node.parent != nullptr) return text::JoinPath(PathOf(*node.parent), node.name);
    const Drive* drive = DriveOf(node);
    return drive == nullptr ? std::string() : drive->info.path;
}

namespace {
std::uint64_t BytesBelow(const MemoryNode& node) {
    std::uint64_t bytes = node.size;
    for (const auto& [key, child] : node.children)
        bytes += BytesBelow(*child);
    return bytes;
}
} // namespace

Result<void> MemoryFileSystem::CheckRoom(const MemoryNode& node, std::uint64_t more) const {
    const Drive* drive = DriveOf(node);
    if (drive == nullptr || drive->capacity == kUnlimited) return {};
    const std::uint64_t used = BytesBelow(*drive->root);
    if (used <= drive->capacity && more <= drive->capacity - used) return {};
    return Fail(kDiskFull, drive->info.path);
}

// ---- looking up ----

Result<MemoryFileSystem::Place> MemoryFileSystem::Walk(std::string_view path, int depth) {
    const auto parsed = ParseDrivePath(path);
    if (!parsed) return std::unexpected(parsed.error());
    const Drive* drive = FindDrive(parsed->root);
    if (drive == nullptr) return Fail(kPathNotFound, path);
    if (!drive->info.isReady) return Fail(kDiskNotReady, path);
    Place place{drive, nullptr, drive->root.get(), {}};
    for (const std::string_view name : parsed->names) {
        if (IsTooLong(name)) return Fail(kBadFileName, path);
        MemoryNode* folder = place.node == nullptr ? nullptr : Followed(*place.node, depth);
        if (folder == nullptr || !folder->IsFolder()) return Fail(kPathNotFound, path);
        if (folder->isUnreadable) return Fail(kPermissionDenied, path);
        place = {drive, folder, folder->Find(name), name};
    }
    if (place.folder != nullptr) place.drive = DriveOf(*place.folder);
    return place;
}

MemoryNode* MemoryFileSystem::Followed(MemoryNode& node, int depth) {
    if (!node.IsLink()) return &node;
    if (depth >= kMostLinks || node.parent == nullptr) return nullptr;
    const bool isAbsolute = ParseDrivePath(node.linkTarget).has_value();
    const std::string target =
        isAbsolute ? node.linkTarget : text::JoinPath(PathOf(*node.parent), node.linkTarget);
    const auto place = Walk(target, depth + 1);
    return place && place->node != nullptr ? Followed(*place->node, depth + 1) : nullptr;
}

Result<MemoryFileSystem::Place> MemoryFileSystem::Need(std::string_view path) {
    auto place = Walk(path);
    if (place && place->node == nullptr) return Fail(kFileNotFound, path);
    return place;
}

Result<MemoryFileSystem::Place> MemoryFileSystem::NeedFile(std::string_view path) {
    auto place = Need(path);
    if (place && place->node->IsFolder()) return Fail(kFileNotFound, path);
    return place;
}

Result<MemoryFileSystem::Place> MemoryFileSystem::NeedFolder(std::string_view path) {
    auto place = Walk(path);
    if (!place) return place;
    if (place->node == nullptr || !FactsOf(*place->node).IsFolder()) {
        return Fail(kPathNotFound, path);
    }
    return place;
}

Result<MemoryFileSystem::Place> MemoryFileSystem::NeedTarget(std::string_view path) {
    auto place = Walk(path);
    if (!place) return place;
    if (place->drive->IsReadOnly()) return Fail(kPermissionDenied, path);
    return place;
}

ObjectFacts MemoryFileSystem::FactsOf(MemoryNode& node) {
    ObjectFacts facts{node.attributes, node.size, node.modified, node.created, node.accessed};
    if (node.name.starts_with('.')) facts.attributes |= kHidden;
    if (node.IsFolder()) facts.attributes |= kFolder;
    if (node.kind == MemoryKind::kSpecial) facts.attributes |= kSpecial;
    if (node.IsLink()) {
        facts.attributes |= kAlias;
        const MemoryNode* target = Followed(node);
        if (target != nullptr && target->IsFolder()) facts.attributes |= kFolder;
    }
    if (facts.IsFolder()) facts.size = 0;
    return facts;
}

Result<ObjectFacts> MemoryFileSystem::Facts(std::string_view path) {
    ++calls_.facts;
    const auto place = Need(path);
    if (!place) return std::unexpected(place.error());
    return FactsOf(*place->node);
}

namespace {
// Joins what `spell` makes of each object on the way.
template <class Spell>
std::string Spelled(std::string_view root, const std::vector<MemoryNode*>& nodes, Spell spell) {
    std::string path = text::Upper(root);
    if (nodes.empty() && path.size() == 2) path += '\\';
    for (const MemoryNode* node : nodes) {
        path += '\\';
        path += spell(node->name);
    }
    return path;
}
} // namespace

Result<std::vector<MemoryNode*>> MemoryFileSystem::NodesOnTheWay(std::string_view path) {
    const auto place = Need(path);
    if (!place) return std::unexpected(place.error());
    const auto parsed = ParseDrivePath(path);
    std::vector<MemoryNode*> nodes;
    MemoryNode* folder = FindDrive(parsed->root)->root.get();
    for (const std::string_view name : parsed->names) {
        nodes.push_back(folder->Find(name));
        folder = Followed(*nodes.back());
    }
    return nodes;
}

Result<std::string> MemoryFileSystem::TruePath(std::string_view path) {
    const auto nodes = NodesOnTheWay(path);
    if (!nodes) return std::unexpected(nodes.error());
    return Spelled(ParseDrivePath(path)->root, *nodes,
                   [](const std::string& name) { return name; });
}

Result<bool> MemoryFileSystem::Holds(std::string_view outer, std::string_view inner) {
    const auto holder = Need(outer);
    if (!holder) return std::unexpected(holder.error());
    const auto held = Need(inner);
    if (!held) return std::unexpected(held.error());
    return held->node->IsWithin(*holder->node) || Followed(*held->node) == holder->node;
}

Result<std::string> MemoryFileSystem::ShortPath(std::string_view path) {
    const auto nodes = NodesOnTheWay(path);
    if (!nodes) return std::unexpected(nodes.error());
    return Spelled(ParseDrivePath(path)->root, *nodes, ShortNameOf);
}

Result<std::unique_ptr<OpenFolder>> MemoryFileSystem::Open(std::string_view folder) {
    calls_.listed.emplace_back(folder);
    const auto place = NeedFolder(folder);
    if (!place) return std::unexpected(place.error());
    MemoryNode* node = Followed(*place->node);
    if (node->isUnreadable) return Fail(kPermissionDenied, folder);
    return std::make_unique<MemoryOpenFolder>(*this, *node, std::string(folder));
}

// ---- changing one object ----

Result<void> MemoryFileSystem::SetAttributes(std::string_view path, std::uint32_t attributes) {
    const auto place = Need(path);
    if (!place) return std::unexpected(place.error());
    if (place->drive->IsReadOnly()) return Fail(kPermissionDenied, path);
    auto& held = place->node->attributes;
    held = (held & ~kSettable) | (attributes & kSettable);
    return {};
}

Result<void> MemoryFileSystem::DeleteFile(std::string_view path, bool force) {
    const auto place = NeedFile(path);
    if (!place) return std::unexpected(place.error());
    const bool isReadOnly = (place->node->attributes & kReadOnly) != 0;
    if (place->drive->IsReadOnly() || (isReadOnly && !force)) return Fail(kPermissionDenied, path);
    place->node->Detach();
    calls_.removed.emplace_back(path);
    return {};
}

Result<void> MemoryFileSystem::RemoveFolder(std::string_view path) {
    const auto place = NeedFolder(path);
    if (!place) return std::unexpected(place.error());
    if (place->drive->IsReadOnly()) return Fail(kPermissionDenied, path);
    const bool canGo = place->node->IsFolder() && place->folder != nullptr;
    if (!canGo || !place->node->children.empty()) return Fail(kPathFileAccess, path);
    lastFolder_ = nullptr;
    place->node->Detach();
    calls_.removed.emplace_back(path);
    return {};
}

Result<void> MemoryFileSystem::CreateFolder(std::string_view path) {
    const auto place = NeedTarget(path);
    if (!place) return std::unexpected(place.error());
    if (place->node != nullptr) return Fail(kPathFileAccess, path);
    place->folder->Attach(NewNode(MemoryKind::kFolder), place->name);
    calls_.made.emplace_back(path);
    return {};
}

Result<std::shared_ptr<MemoryNode>> MemoryFileSystem::TakeAway(std::string_view path) {
    const auto place = Need(path);
    if (!place) return std::unexpected(place.error());
    if (place->drive->IsReadOnly() || place->folder == nullptr) {
        return Fail(kPermissionDenied, path);
    }
    lastFolder_ = nullptr;
    calls_.recycled.emplace_back(path);
    return place->node->Detach();
}

Result<void> MemoryFileSystem::PutBack(std::string_view path, std::shared_ptr<MemoryNode> node) {
    const auto place = NeedTarget(path);
    if (!place) return std::unexpected(place.error());
    if (place->node != nullptr) return Fail(kAlreadyExists, path);
    place->folder->Attach(std::move(node), place->name);
    return {};
}

// ---- content ----

Result<MemoryNode*> MemoryFileSystem::NeedBytes(std::string_view path, bool toWrite) {
    const auto place = NeedFile(path);
    if (!place) return std::unexpected(place.error());
    MemoryNode* node = Followed(*place->node);
    if (node == nullptr || node->IsFolder()) return Fail(kFileNotFound, path);
    if (node->kind == MemoryKind::kSpecial) return Fail(kBadFileName, path);
    const bool isReadOnly = place->drive->IsReadOnly() || (node->attributes & kReadOnly) != 0;
    if (node->isUnreadable || (toWrite && isReadOnly)) return Fail(kPermissionDenied, path);
    return node;
}

Result<std::string> MemoryFileSystem::ReadBytes(std::string_view path, std::uint64_t offset,
                                                std::size_t count) {
    calls_.read.emplace_back(path);
    const auto node = NeedBytes(path, false);
    if (!node) return std::unexpected(node.error());
    return (*node)->Bytes(offset, count);
}

Result<std::unique_ptr<TextStream>> MemoryFileSystem::CreateTextFile(std::string_view path,
                                                                     bool overwrite) {
    const auto place = NeedTarget(path);
    if (!place) return std::unexpected(place.error());
    if (place->node != nullptr) {
        if (!overwrite) return Fail(kAlreadyExists, path);
        if (FactsOf(*place->node).IsFolder()) return Fail(kPathFileAccess, path);
        return OpenAsTextStream(path, OpenMode::kWrite);
    }
    auto node = NewNode(MemoryKind::kFile);
    place->folder->Attach(node, place->name);
    calls_.made.emplace_back(path);
    return std::make_unique<MemoryWriter>(*this, std::move(node));
}

Result<std::unique_ptr<TextStream>> MemoryFileSystem::OpenAsTextStream(std::string_view path,
                                                                       OpenMode mode) {
    const auto node = NeedBytes(path, mode != OpenMode::kRead);
    if (!node) return std::unexpected(node.error());
    if (mode == OpenMode::kRead) {
        calls_.read.emplace_back(path);
        const auto size = static_cast<std::size_t>((*node)->size);
        return std::make_unique<MemoryReader>((*node)->Bytes(0, size));
    }
    if ((*node)->isBeingWritten) return Fail(kPermissionDenied, path);
    calls_.made.emplace_back(path);
    if (mode == OpenMode::kWrite) {
        (*node)->content.clear();
        (*node)->size = 0;
        (*node)->modified = Now();
    }
    return std::make_unique<MemoryWriter>(*this, (*node)->shared_from_this());
}

std::shared_ptr<MemoryNode> MemoryFileSystem::NewNode(MemoryKind kind) const {
    auto node = std::make_shared<MemoryNode>(kind);
    if (kind != MemoryKind::kFolder) node->attributes = kArchive;
    node->modified = node->created = node->accessed = now_();
    return node;
}

} // namespace tarvix::platform
