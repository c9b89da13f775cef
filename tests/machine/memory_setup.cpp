#include "platform/drive_path.h"
#include "platform/names.h"
#include "tests/machine/memory_file_system.h"
#include "text/paths.h"

#include <cassert>

// What tests put on a disk in memory, and see of it, behind the interface's back.
namespace tarvix::platform {

MemoryNode& MemoryFileSystem::FolderFor(const DrivePath& path) {
    Drive* drive = FindDrive(path.root);
    assert(drive != nullptr);
    MemoryNode* folder = drive->root.get();
    for (std::size_t i = 0; i + 1 < path.names.size(); ++i) {
        MemoryNode* next = folder->Child(path.names[i]);
        if (next == nullptr) {
            folder->Attach(NewNode(MemoryKind::kFolder), path.names[i]);
            next = folder->Child(path.names[i]);
        }
        folder = Followed(*next);
        assert(folder != nullptr && folder->IsFolder());
    }
    return *folder;
}

MemoryNode& MemoryFileSystem::AddNode(std::string_view path, MemoryKind kind) {
    path = text::StripTrailingSlash(path);
    const std::string_view name = text::FolderOwnName(path);
    const std::string_view folder = path.substr(0, path.size() - name.size());
    if (lastFolder_ == nullptr || folder != lastFolderPath_) {
        const auto parsed = ParseDrivePath(path);
        assert(parsed && !parsed->names.empty());
        lastFolder_ = &FolderFor(*parsed);
        lastFolderPath_ = folder;
    }
    auto node = NewNode(kind);
    MemoryNode& added = *node;
    lastFolder_->Attach(std::move(node), name);
    return added;
}

MemoryNode& MemoryFileSystem::AddFile(std::string_view path, std::string_view content) {
    MemoryNode& node = AddNode(path, MemoryKind::kFile);
    node.content = content;
    node.size = content.size();
    return node;
}

MemoryNode& MemoryFileSystem::AddFileOfSize(std::string_view path, std::uint64_t size) {
    MemoryNode& node = AddNode(path, MemoryKind::kFile);
    node.size = size;
    return node;
}

MemoryNode& MemoryFileSystem::AddFolder(std::string_view path) {
    const auto parsed = ParseDrivePath(path);
    assert(parsed);
    if (parsed->names.empty()) return *FindDrive(parsed->root)->root;
    MemoryNode* existing = FolderFor(*parsed).Child(parsed->names.back());
    return existing != nullptr ? *existing : AddNode(path, MemoryKind::kFolder);
}

MemoryNode& MemoryFileSystem::AddLink(std::string_view path, std::string_view target) {
    MemoryNode& node = AddNode(path, MemoryKind::kLink);
    node.linkTarget = target;
    return node;
}

MemoryNode& MemoryFileSystem::AddSpecial(std::string_view path) {
    return AddNode(path, MemoryKind::kSpecial);
}

MemoryNode& MemoryFileSystem::AddNative(std::string_view folder, std::string_view nativeName,
                                        std::string_view content) {
    MemoryNode& parent = AddFolder(folder);
    auto node = NewNode(MemoryKind::kFile);
    node->content = content;
    node->size = content.size();
    MemoryNode& added = *node;
    const std::string name = NameToDrive(nativeName);
    parent.Attach(std::move(node), name, CanBeName(name) ? std::string_view() : nativeName);
    return added;
}

MemoryNode* MemoryFileSystem::Node(std::string_view path) {
    const auto place = Walk(path);
    return place ? place->node : nullptr;
}

std::optional<std::string> MemoryFileSystem::Content(std::string_view path) {
    const MemoryNode* node = Node(path);
    if (node == nullptr || node->kind != MemoryKind::kFile) return std::nullopt;
    return node->Bytes(0, static_cast<std::size_t>(node->size));
}

namespace {
void Collect(const MemoryNode& folder, const std::string& path, bool folders,
             std::vector<std::string>& out) {
    for (const auto& [key, node] : folder.children) {
        const std::string nodePath = text::JoinPath(path, node->name);
        if (node->IsFolder() == folders) out.push_back(nodePath);
        if (node->IsFolder()) Collect(*node, nodePath, folders, out);
    }
}
} // namespace

std::vector<std::string> MemoryFileSystem::AllFiles() const {
    std::vector<std::string> paths;
    for (const auto& [key, drive] : drives_)
        Collect(*drive.root, key, false, paths);
    return paths;
}

std::vector<std::string> MemoryFileSystem::AllFolders() const {
    std::vector<std::string> paths;
    for (const auto& [key, drive] : drives_)
        Collect(*drive.root, key, true, paths);
    return paths;
}

} // namespace tarvix::platform
