#include "platform/drive_path.h"
#include "platform/names.h"
#include "tests/machine/memory_file_system.h"
#include "text/paths.h"

#include <cassert>

// What tests put on a disk in memory, and see of it, behind the interface's back.
namespace tarvix::platform {

TreeNode& MemoryFileSystem::FolderFor(const DrivePath& path) {
    TreeDrive* drive = FindDrive(path.root);
    assert(drive != nullptr);
    TreeNode* folder = drive->top.get();
    for (std::size_t i = 0; i + 1 < path.names.size(); ++i) {
        TreeNode* next = folder->Child(path.names[i]);
        if (next == nullptr) {
            folder->Attach(Made(TreeKind::kFolder), path.names[i]);
            next = folder->Child(path.names[i]);
        }
        folder = Followed(*next);
        assert(folder != nullptr && folder->IsFolder());
    }
    return *folder;
}

MemoryNode& MemoryFileSystem::AddNode(std::string_view path, TreeKind kind) {
    path = text::StripTrailingSlash(path);
    const std::string_view name = text::FolderOwnName(path);
    const std::string_view folder = path.substr(0, path.size() - name.size());
    if (lastFolder_ == nullptr || folder != lastFolderPath_) {
        const auto parsed = ParseDrivePath(path);
        assert(parsed && !parsed->names.empty());
        lastFolder_ = &FolderFor(*parsed);
        lastFolderPath_ = folder;
    }
    auto node = Made(kind);
    MemoryNode& added = InMemory(*node);
    lastFolder_->Attach(std::move(node), name);
    return added;
}

MemoryNode& MemoryFileSystem::AddFile(std::string_view path, std::string_view content) {
    MemoryNode& node = AddNode(path, TreeKind::kFile);
    node.content = content;
    node.size = content.size();
    return node;
}

MemoryNode& MemoryFileSystem::AddFileOfSize(std::string_view path, std::uint64_t size) {
    MemoryNode& node = AddNode(path, TreeKind::kFile);
    node.size = size;
    return node;
}

MemoryNode& MemoryFileSystem::AddFolder(std::string_view path) {
    const auto parsed = ParseDrivePath(path);
    assert(parsed);
    if (parsed->names.empty()) return InMemory(*FindDrive(parsed->root)->top);
    TreeNode* existing = FolderFor(*parsed).Child(parsed->names.back());
    return existing != nullptr ? InMemory(*existing) : AddNode(path, TreeKind::kFolder);
}

MemoryNode& MemoryFileSystem::AddLink(std::string_view path, std::string_view target) {
    MemoryNode& node = AddNode(path, TreeKind::kLink);
    node.linkTarget = target;
    return node;
}

MemoryNode& MemoryFileSystem::AddSpecial(std::string_view path) {
    MemoryNode& node = AddNode(path, TreeKind::kFile);
    node.attributes |= kSpecial;
    return node;
}

MemoryNode& MemoryFileSystem::AddNative(std::string_view folder, std::string_view nativeName,
                                        std::string_view content) {
    return AddFile(text::JoinPath(folder, NameToDrive(nativeName)), content);
}

MemoryNode& MemoryFileSystem::AddUnopenable(std::string_view folder, std::string_view shownName,
                                            std::string_view nativeName, std::string_view content) {
    MemoryNode& parent = AddFolder(folder);
    auto node = Made(TreeKind::kFile);
    node->content = content;
    node->size = content.size();
    MemoryNode& added = InMemory(*node);
    parent.Attach(std::move(node), shownName, nativeName);
    return added;
}

MemoryNode* MemoryFileSystem::Node(std::string_view path) {
    const auto place = Walk(path);
    return place && place->node != nullptr ? &InMemory(*place->node) : nullptr;
}

std::optional<std::string> MemoryFileSystem::Content(std::string_view path) {
    const MemoryNode* node = Node(path);
    if (node == nullptr || node->kind != TreeKind::kFile || (node->attributes & kSpecial) != 0)
        return std::nullopt;
    return node->Bytes(0, static_cast<std::size_t>(node->size));
}

namespace {
void Collect(const TreeNode& folder, const std::string& path, bool folders,
             std::vector<std::string>& out) {
    for (const auto& [key, node] : folder.Children()) {
        const std::string nodePath = text::JoinPath(path, node->name);
        if (node->IsFolder() == folders) out.push_back(nodePath);
        if (node->IsFolder()) Collect(*node, nodePath, folders, out);
    }
}
} // namespace

std::vector<std::string> MemoryFileSystem::AllFiles() const {
    std::vector<std::string> paths;
    for (const auto& [key, drive] : drives_)
        Collect(*drive.top, key, false, paths);
    return paths;
}

std::vector<std::string> MemoryFileSystem::AllFolders() const {
    std::vector<std::string> paths;
    for (const auto& [key, drive] : drives_)
        Collect(*drive.top, key, true, paths);
    return paths;
}

} // namespace tarvix::platform
