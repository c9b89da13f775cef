#include "platform/rehearsal/rehearsal_tree.h"

#include "platform/drive_path.h"
#include "platform/names.h"
#include "platform/short_names.h"
#include "text/case.h"
#include "text/paths.h"

#include <algorithm>

namespace tarvix::platform {

namespace {
constexpr std::size_t kLongestName = 255; // bytes of a name on disk

bool IsTooLong(std::string_view name) {
    return name.size() > kLongestName && NameToNative(name).size() > kLongestName;
}

RehearsalNode& Insert(RehearsalChildren& children, std::unique_ptr<RehearsalNode> node) {
    auto [at, end] = children.byUpper.equal_range(text::Upper(node->name));
    while (at != end && at->second->name < node->name)
        ++at;
    return *children.byUpper.emplace_hint(at, text::Upper(node->name), std::move(node))->second;
}

void AddShort(RehearsalChildren& children, RehearsalNode& node) {
    const auto [entry, isNew] = children.byShort->try_emplace(ShortNameOf(node.name), &node);
    if (!isNew) entry->second = nullptr;
}

RehearsalNode* ExactChild(const RehearsalChildren& children, std::string_view name) {
    auto [at, end] = children.byUpper.equal_range(text::Upper(name));
    for (; at != end; ++at) {
        if (at->second->name == name) return at->second.get();
    }
    return nullptr;
}

const std::pair<const std::string, RehearsalNode*>* ShortChild(RehearsalChildren& children,
                                                               std::string_view name) {
    if (!children.byShort) {
        children.byShort.emplace();
        for (const auto& [upper, node] : children.byUpper)
            AddShort(children, *node);
    }
    const auto found = children.byShort->find(text::Upper(name));
    return found == children.byShort->end() ? nullptr : &*found;
}

void TakeHiddenFromName(ObjectFacts& facts, std::string_view before, std::string_view now) {
    if (now.starts_with('.')) {
        facts.attributes |= kHidden;
    } else if (before.starts_with('.')) {
        facts.attributes &= ~std::uint32_t{kHidden};
    }
}
} // namespace

std::unexpected<PlatformError> RehearsalFailure(int number, std::string_view path) {
    return Failure(number, ForDisplay(path) + ": " + ErrorText(number) + ".");
}

bool RehearsalNode::IsWithin(const RehearsalNode& other) const {
    const RehearsalNode* node = this;
    while (node != nullptr && node != &other)
        node = node->parent;
    return node != nullptr;
}

std::string RehearsalNode::RealPath() const {
    if (origin) return *origin;
    if (isMade || parent == nullptr) return {};
    const std::string outer = parent->RealPath();
    return outer.empty() ? outer : text::JoinPath(outer, name);
}

void RehearsalTree::Clear() {
    ForgetRecent();
    drives_.clear();
}

// ---- walking ----

Result<RehearsalTree::Drive*> RehearsalTree::DriveOf(std::string_view root) {
    std::string key = text::Upper(root);
    const auto known = drives_.find(key);
    if (known != drives_.end()) return known->second.get();
    const std::string path = key + "\\";
    if (const auto there = real_.Facts(path); !there) return std::unexpected(there.error());
    auto drive = std::make_unique<Drive>();
    const auto infos = real_.Drives();
    drive->isReadOnly = std::ranges::any_of(infos, [&](const DriveInfo& info) {
        return info.type == DriveType::kCdRom && text::EqualNoCase(info.path, key);
    });
    drive->root = key;
    drive->top.origin = std::make_unique<std::string>(path);
    drive->top.isFolder = true;
    return drives_.emplace(std::move(key), std::move(drive)).first->second.get();
}

Result<RehearsalTree::Place> RehearsalTree::Below(Drive& drive, RehearsalNode& folder,
                                                  std::string_view name, std::string_view path) {
    if (IsTooLong(name)) return RehearsalFailure(kBadFileName, path);
    if (!folder.isFolder) return RehearsalFailure(kPathNotFound, path);
    const auto node = Find(folder, name);
    if (!node) return std::unexpected(node.error());
    return Place{&drive, &folder, *node, name};
}

Result<RehearsalTree::Place> RehearsalTree::Walk(std::string_view path) {
    const std::size_t slash = path.rfind('\\');
    const std::string_view folderPath = path.substr(0, std::min(slash, path.size()));
    if (slash != path.npos && CanBeName(path.substr(slash + 1))) {
        const auto known = std::ranges::find(recent_, folderPath, &Recent::path);
        if (known != recent_.end() && known->folder != nullptr) {
            return Below(*known->drive, *known->folder, path.substr(slash + 1), path);
        }
    }
    const auto parsed = ParseDrivePath(path);
    if (!parsed) return std::unexpected(parsed.error());
    const auto drive = DriveOf(parsed->root);
    if (!drive) return std::unexpected(drive.error());
    Place place{*drive, nullptr, &(*drive)->top, {}};
    for (const std::string_view name : parsed->names) {
        if (place.node == nullptr) return RehearsalFailure(kPathNotFound, path);
        auto below = Below(**drive, *place.node, name, path);
        if (!below) return below;
        place = *below;
    }
    const bool isPlain = slash != path.npos && place.name == path.substr(slash + 1);
    if (isPlain && place.folder != nullptr) Remember(folderPath, **drive, *place.folder);
    return place;
}

void RehearsalTree::Remember(std::string_view folderPath, Drive& drive, RehearsalNode& folder) {
    recent_[nextRecent_] = {std::string(folderPath), &drive, &folder};
    nextRecent_ = (nextRecent_ + 1) % recent_.size();
}

void RehearsalTree::ForgetRecent() {
    recent_.fill({});
}

Result<RehearsalTree::Place> RehearsalTree::Need(std::string_view path) {
    auto place = Walk(path);
    if (place && place->node == nullptr) return RehearsalFailure(kFileNotFound, path);
    return place;
}

Result<RehearsalTree::Place> RehearsalTree::NeedFile(std::string_view path) {
    auto place = Need(path);
    if (place && place->node->IsTrueFolder()) return RehearsalFailure(kFileNotFound, path);
    return place;
}

Result<RehearsalTree::Place> RehearsalTree::NeedFolder(std::string_view path) {
    auto place = Walk(path);
    if (place && (place->node == nullptr || !place->node->isFolder)) {
        return RehearsalFailure(kPathNotFound, path);
    }
    return place;
}

Result<RehearsalTree::Place> RehearsalTree::NeedTarget(std::string_view path) {
    auto place = Walk(path);
    if (place && place->drive->isReadOnly) return RehearsalFailure(kPermissionDenied, path);
    return place;
}

// ---- folders ----

std::unique_ptr<RehearsalChildren> RehearsalTree::Load(RehearsalNode& folder) {
    auto children = std::make_unique<RehearsalChildren>();
    const std::string path = folder.RealPath();
    if (path.empty()) return children;
    FolderListing listing;
    const auto opened = real_.Open(path);
    const auto listed = opened ? (*opened)->List(listing) : std::unexpected(opened.error());
    if (!listed) {
        children->failure = listed.error().number;
        return children;
    }
    for (std::size_t i = 0; i < listing.Size(); ++i) {
        const FolderEntry entry = listing[i];
        auto node = std::make_unique<RehearsalNode>();
        node->name = entry.name;
        node->parent = &folder;
        node->isFolder = entry.isFolder;
        node->isLink = entry.isLink;
        node->isBoundary = entry.isBoundary;
        children->byUpper.emplace_hint(children->byUpper.end(), text::Upper(entry.name),
                                       std::move(node));
    }
    return children;
}

Result<RehearsalChildren*> RehearsalTree::ChildrenOf(RehearsalNode& folder) {
    if (!folder.children) folder.children = Load(folder);
    const int failure = folder.children->failure;
    if (failure != 0) return RehearsalFailure(failure, folder.RealPath());
    return folder.children.get();
}

// A folder that can't be listed may still give an object by its exact name.
Result<RehearsalNode*> RehearsalTree::FindUnlisted(RehearsalNode& folder, std::string_view name) {
    if (RehearsalNode* const known = ExactChild(*folder.children, name)) return known;
    const auto facts = real_.Facts(text::JoinPath(folder.RealPath(), name));
    if (!facts && facts.error().number == kFileNotFound) return nullptr;
    if (!facts) return std::unexpected(facts.error());
    auto node = std::make_unique<RehearsalNode>();
    node->name = name;
    node->parent = &folder;
    node->isFolder = facts->IsFolder();
    node->isLink = facts->IsLink();
    node->facts = *facts;
    return &Insert(*folder.children, std::move(node));
}

Result<RehearsalNode*> RehearsalTree::FindExact(RehearsalNode& folder, std::string_view name) {
    const auto children = ChildrenOf(folder);
    if (!children) return FindUnlisted(folder, name);
    return ExactChild(**children, name);
}

Result<RehearsalNode*> RehearsalTree::Find(RehearsalNode& folder, std::string_view name) {
    const auto children = ChildrenOf(folder);
    if (!children) return FindUnlisted(folder, name);
    auto [at, end] = (*children)->byUpper.equal_range(text::Upper(name));
    RehearsalNode* const inOtherCase = at == end ? nullptr : at->second.get();
    for (; at != end; ++at) {
        if (at->second->name == name) return at->second.get();
    }
    if (LooksLikeMadeShortName(name)) {
        if (const auto* const found = ShortChild(**children, name)) return found->second;
    }
    return inOtherCase;
}

// ---- objects ----

Result<ObjectFacts> RehearsalTree::FactsOf(RehearsalNode& node) {
    if (!node.facts) {
        auto facts = real_.Facts(node.RealPath());
        if (!facts) return facts;
        if (node.origin && node.parent != nullptr) {
            TakeHiddenFromName(*facts, text::FileNameOf(*node.origin), node.name);
        }
        node.facts = *facts;
    }
    if (node.text) node.facts->size = node.text->size();
    return *node.facts;
}

std::unique_ptr<RehearsalNode> RehearsalTree::MakeFolder() const {
    auto node = std::make_unique<RehearsalNode>();
    const FileTime now = Now();
    node->isMade = true;
    node->isFolder = true;
    node->facts = {kFolder, 0, now, now, now};
    node->children = std::make_unique<RehearsalChildren>();
    return node;
}

std::unique_ptr<RehearsalNode> RehearsalTree::MakeFile() const {
    auto node = std::make_unique<RehearsalNode>();
    const FileTime now = Now();
    node->isMade = true;
    node->facts = {kArchive, 0, now, now, now};
    node->text = std::make_shared<std::string>();
    return node;
}

Result<std::unique_ptr<RehearsalNode>> RehearsalTree::Duplicate(RehearsalNode& node) {
    const auto facts = FactsOf(node);
    if (!facts) return std::unexpected(facts.error());
    auto copy = std::make_unique<RehearsalNode>();
    copy->name = node.name;
    copy->isFolder = node.isFolder;
    copy->isLink = node.isLink;
    copy->facts = *facts;
    copy->facts->created = Now();
    if (node.text) copy->text = std::make_shared<std::string>(*node.text);
    std::string real = node.RealPath();
    copy->isMade = real.empty();
    if (!real.empty()) copy->origin = std::make_unique<std::string>(std::move(real));
    return copy;
}

RehearsalNode& RehearsalTree::Attach(RehearsalNode& folder, std::unique_ptr<RehearsalNode> node,
                                     std::string_view name) {
    if (node->facts) TakeHiddenFromName(*node->facts, node->name, name);
    node->name = name;
    node->parent = &folder;
    if (node->isFolder) ForgetRecent();
    RehearsalChildren& children = *folder.children;
    RehearsalNode& placed = Insert(children, std::move(node));
    if (children.byShort) AddShort(children, placed);
    return placed;
}

std::unique_ptr<RehearsalNode> RehearsalTree::Detach(RehearsalNode& node) {
    if (!node.origin && !node.isMade) node.origin = std::make_unique<std::string>(node.RealPath());
    if (node.isFolder) ForgetRecent();
    RehearsalChildren& children = *node.parent->children;
    children.byShort.reset();
    auto at = children.byUpper.lower_bound(text::Upper(node.name));
    while (at->second.get() != &node)
        ++at;
    auto taken = std::move(at->second);
    children.byUpper.erase(at);
    taken->parent = nullptr;
    return taken;
}

} // namespace tarvix::platform
