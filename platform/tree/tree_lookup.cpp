#include "platform/drive_path.h"
#include "platform/names.h"
#include "platform/short_names.h"
#include "platform/tree/tree_file_system.h"
#include "platform/try.h"
#include "text/case.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::platform {

namespace {
constexpr std::size_t kLongestName = 255; // bytes of a name on disk

bool IsTooLong(std::string_view name) {
    return name.size() > kLongestName && NameToNative(name).size() > kLongestName;
}

class TreeOpenFolder : public OpenFolder {
  public:
    TreeOpenFolder(TreeFileSystem& files, TreeNode& folder, std::string path)
        : files_(files), folder_(folder.shared_from_this()), path_(std::move(path)) {}

    Result<void> List(FolderListing& listing) override {
        listing.Clear();
        if (!files_.IsOnDisk(*folder_)) return TreeFailure(kPathNotFound, path_);
        for (const auto& [upper, node] : folder_->Children()) {
            listing.Add(
                {node->name, files_.LeadsToFolder(*node), node->IsLink(), node->isBoundary});
        }
        return {};
    }

    Result<ObjectFacts> Facts(std::string_view name) override {
        if (!CanBeName(name) || IsTooLong(name)) {
            return TreeFailure(kBadFileName, text::JoinPath(path_, name));
        }
        TreeNode* const node = folder_->Child(name);
        if (node == nullptr) return TreeFailure(kFileNotFound, text::JoinPath(path_, name));
        return files_.FactsOf(*node);
    }

  private:
    TreeFileSystem& files_;
    std::shared_ptr<TreeNode> folder_;
    std::string path_;
};
} // namespace

std::unexpected<PlatformError> TreeFailure(int number, std::string_view path) {
    return std::unexpected(PlatformError{
        number, fmt::format("{}: {}.", ForDisplay(path), ErrorText(number)), std::string(path)});
}

// ---- walking ----

const TreeDrive* TreeFileSystem::DriveOf(const TreeNode& node) const {
    const TreeNode* top = &node;
    while (top->parent != nullptr)
        top = top->parent;
    for (const auto& [root, drive] : drives_) {
        if (drive.top.get() == top) return &drive;
    }
    return nullptr;
}

TreeNode* TreeFileSystem::FolderAt(TreeNode& node) {
    if (node.IsFolder()) return &node;
    return node.IsLink() ? FolderBehind(node) : nullptr;
}

Result<TreeFileSystem::Place> TreeFileSystem::Below(const TreeDrive* drive, TreeNode& folder,
                                                    std::string_view name, std::string_view path) {
    if (IsTooLong(name)) return TreeFailure(kBadFileName, path);
    TreeNode* node = nullptr;
    if (WhyUnlisted(folder) == 0) {
        node = folder.children ? folder.children->Find(name) : nullptr;
    } else {
        TX_TRY_ASSIGN(node, FindUnlisted(folder, name));
    }
    return Place{drive, &folder, node, name, {}};
}

Result<TreeFileSystem::Place> TreeFileSystem::WalkAll(std::string_view path,
                                                      std::vector<const TreeNode*>* way) {
    TX_TRY_ASSIGN(const DrivePath parsed, ParseDrivePath(path));
    TX_TRY_ASSIGN(const TreeDrive* const drive, DriveNamed(parsed.root, path));
    Place place{drive, nullptr, drive->top.get(), {}, {}};
    for (const std::string_view name : parsed.names) {
        TreeNode* const folder = place.node == nullptr ? nullptr : FolderAt(*place.node);
        if (folder == nullptr) return TreeFailure(kPathNotFound, path);
        TX_TRY_ASSIGN(place, Below(drive, *folder, name, path));
        if (way != nullptr) way->push_back(place.node);
    }
    // A link may have led to another drive.
    if (place.folder != nullptr) place.drive = DriveOf(*place.folder);
    return place;
}

Result<TreeFileSystem::Place> TreeFileSystem::Need(std::string_view path) {
    auto place = Walk(path);
    if (place && place->node == nullptr) return TreeFailure(kFileNotFound, path);
    return place;
}

Result<TreeFileSystem::Place> TreeFileSystem::NeedFile(std::string_view path) {
    auto place = Need(path);
    if (place && place->node->IsFolder()) return TreeFailure(kFileNotFound, path);
    return place;
}

Result<TreeFileSystem::Place> TreeFileSystem::NeedFolder(std::string_view path) {
    auto place = Walk(path);
    if (!place) return place;
    const bool isFolder = place->node != nullptr && LeadsToFolder(*place->node);
    if (!isFolder) return TreeFailure(kPathNotFound, path);
    return place;
}

Result<TreeChildren*> TreeFileSystem::ChildrenOf(TreeNode& folder, std::string_view path) {
    const int failure = WhyUnlisted(folder);
    if (failure != 0) return TreeFailure(failure, path);
    if (!folder.children) folder.children = std::make_unique<TreeChildren>();
    return folder.children.get();
}

// ---- what is asked ----

Result<ObjectFacts> TreeFileSystem::FactsOf(TreeNode& node) {
    TX_TRY(Fetch(node));
    ObjectFacts facts{node.attributes, node.size,     node.modified,
                      node.created,    node.accessed, node.identity};
    if (facts.identity.changed == kNoTime) {
        facts.identity.changed = std::max(node.modified, node.created);
    }
    if (node.name.starts_with('.')) facts.attributes |= kHidden;
    if (node.IsLink()) facts.attributes |= kAlias;
    if (LeadsToFolder(node)) {
        facts.attributes |= kFolder;
        facts.size = 0;
    }
    return facts;
}

Result<ObjectFacts> TreeFileSystem::Facts(std::string_view path) {
    TX_TRY_ASSIGN(const Place place, Need(path));
    return FactsOf(*place.node);
}

Result<void> TreeFileSystem::CheckRoad(const Place& place, const SeenObject& seen) {
    const std::string_view location = seen.path.substr(0, seen.sighting.location);
    std::string_view below = text::StripTrailingSlash(seen.path.substr(location.size()));
    const TreeNode* node = place.node;
    for (; !below.empty(); node = node->parent) {
        const std::size_t slash = below.rfind('\\');
        const std::string_view name = slash == below.npos ? below : below.substr(slash + 1);
        const bool isObject = node == place.node;
        const bool isLink = node->parent == nullptr || (!isObject && node->IsLink());
        if (isLink || (node->name != name && !text::EqualNoCase(node->name, name))) {
            return TreeFailure(kChangedSinceSearch, seen.path);
        }
        // A neighbour of another case is another object.
        if (node->name != name) {
            return TreeFailure(isObject ? kFileNotFound : kPathNotFound, seen.path);
        }
        below = slash == below.npos ? std::string_view() : below.substr(0, slash);
    }
    TX_TRY_ASSIGN(const Place from, Walk(location));
    if (from.node != nullptr && FolderAt(*from.node) == node) return {};
    return TreeFailure(kChangedSinceSearch, seen.path);
}

Result<Look> TreeFileSystem::LookAtSeen(const SeenObject& seen) {
    if (seen.sighting.location == kAnyRoad) return FileSystem::LookAtSeen(seen);
    TX_TRY_ASSIGN(const Place place, Need(seen.path));
    TX_TRY(CheckRoad(place, seen));
    TX_TRY_ASSIGN(const ObjectFacts facts, FactsOf(*place.node));
    TX_TRY(CheckSame(seen, facts));
    const bool mustBeEmpty = seen.same == Same::kContent && seen.sighting.wasEmpty;
    if (mustBeEmpty && place.node->IsFolder()) {
        TX_TRY_ASSIGN(const TreeChildren* const children, ChildrenOf(*place.node, seen.path));
        if (!children->empty()) return TreeFailure(kChangedSinceSearch, seen.path);
    }
    return Look{std::string(seen.path), facts, nullptr, seen.sighting.location};
}

template <class Spell>
Result<std::string> TreeFileSystem::Spelled(std::string_view path, Spell spell) {
    std::vector<const TreeNode*> way;
    TX_TRY_ASSIGN(const Place place, WalkAll(path, &way));
    if (place.node == nullptr) return TreeFailure(kFileNotFound, path);
    const std::string_view root = ParseDrivePath(path)->root;
    const bool isLetter = root.size() == 2;
    std::string out = isLetter ? text::Upper(root) : std::string(root);
    if (way.empty() && isLetter) out += '\\';
    for (const TreeNode* node : way) {
        out += '\\';
        out += spell(node->name);
    }
    return out;
}

Result<std::string> TreeFileSystem::TruePath(std::string_view path) {
    return Spelled(path, [](const std::string& name) { return name; });
}

Result<std::string> TreeFileSystem::ShortPath(std::string_view path) {
    return Spelled(path, ShortNameOf);
}

Result<std::unique_ptr<OpenFolder>> TreeFileSystem::Open(std::string_view folder) {
    TX_TRY_ASSIGN(const Place place, NeedFolder(folder));
    TreeNode& node = *FolderAt(*place.node);
    TX_TRY(ChildrenOf(node, folder));
    return std::make_unique<TreeOpenFolder>(*this, node, std::string(folder));
}

} // namespace tarvix::platform
