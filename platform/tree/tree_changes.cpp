#include "platform/tree/tree_file_system.h"
#include "platform/tree/tree_text_stream.h"
#include "platform/try.h"
#include "text/case.h"

namespace tarvix::platform {

namespace {
constexpr std::uint32_t kSettable = kReadOnly | kHidden | kSystem | kArchive;
// A list or playlist larger than this is none.
constexpr std::size_t kTextLimit = std::size_t{1} << 30;
} // namespace

std::shared_ptr<TreeNode> TreeFileSystem::Made(TreeKind kind) const {
    auto node = NewNode(kind);
    if (kind != TreeKind::kFolder) node->attributes = kArchive;
    node->modified = node->created = node->accessed = Now();
    return node;
}

void TreeFileSystem::Attach(const Place& place, std::shared_ptr<TreeNode> node,
                            std::string_view name) {
    BeforeMoving(*node);
    place.folder->Attach(std::move(node), name, place.nativeName);
}

std::shared_ptr<TreeNode> TreeFileSystem::Detach(TreeNode& node) {
    BeforeMoving(node);
    return node.Detach();
}

// A new name at a place.
Result<void> TreeFileSystem::MayAdd(const Place& place, std::string_view path) {
    if (place.drive->IsReadOnly()) return TreeFailure(kPermissionDenied, path);
    return place.folder == nullptr ? Result<void>() : CheckAddTo(*place.folder, path);
}

// What stands at a place leaves it.
Result<void> TreeFileSystem::MayTake(const Place& place, std::string_view path) {
    if (place.drive->IsReadOnly() || place.folder == nullptr) {
        return TreeFailure(kPermissionDenied, path);
    }
    return CheckTake(*place.node, path);
}

// ---- one object ----

Result<void> TreeFileSystem::SetAttributes(std::string_view path, std::uint32_t attributes) {
    BeginChange();
    TX_TRY_ASSIGN(const Place place, Need(path));
    if (place.drive->IsReadOnly()) return TreeFailure(kPermissionDenied, path);
    TX_TRY(Fetch(*place.node));
    if (!place.node->IsLink()) {
        std::uint32_t& held = place.node->attributes;
        held = (held & ~kSettable) | (attributes & kSettable);
    }
    NoteChange(TreeChange::kSetAttributes, path, {});
    return {};
}

Result<void> TreeFileSystem::DeleteFile(std::string_view path, bool force) {
    BeginChange();
    TX_TRY_ASSIGN(const Place place, NeedFile(path));
    TX_TRY(Fetch(*place.node));
    const bool isKept = (place.node->attributes & kReadOnly) != 0 && !force;
    if (isKept) return TreeFailure(kPermissionDenied, path);
    TX_TRY(MayTake(place, path));
    Detach(*place.node);
    NoteChange(TreeChange::kDeleteFile, path, {});
    return {};
}

Result<void> TreeFileSystem::RemoveFolder(std::string_view path) {
    BeginChange();
    TX_TRY_ASSIGN(const Place place, NeedFolder(path));
    if (place.drive->IsReadOnly()) return TreeFailure(kPermissionDenied, path);
    const bool canGo = place.node->IsFolder() && place.folder != nullptr;
    // What can't be listed isn't known to be empty.
    const bool isKnown = canGo && (WhyUnlisted(*place.node) == 0 || place.node->isHeld);
    if (!isKnown || !place.node->Children().empty()) return TreeFailure(kPathFileAccess, path);
    TX_TRY(MayTake(place, path));
    Detach(*place.node);
    NoteChange(TreeChange::kRemoveFolder, path, {});
    return {};
}

Result<void> TreeFileSystem::CreateFolder(std::string_view path) {
    BeginChange();
    TX_TRY_ASSIGN(const Place place, Walk(path));
    if (place.node != nullptr) return TreeFailure(kPathFileAccess, path);
    TX_TRY(MayAdd(place, path));
    Attach(place, Made(TreeKind::kFolder), place.name);
    NoteChange(TreeChange::kCreateFolder, path, {});
    return {};
}

Result<std::shared_ptr<TreeNode>> TreeFileSystem::TakeAway(std::string_view path) {
    BeginChange();
    TX_TRY_ASSIGN(const Place place, Need(path));
    TX_TRY(MayTake(place, path));
    NoteChange(TreeChange::kRecycle, path, {});
    return Detach(*place.node);
}

// ---- moving ----

// An object may only get its own name in another case, when no other has it in a third one.
Result<void> TreeFileSystem::CheckFree(const Place& from, const Place& to,
                                       std::string_view toPath) const {
    if (to.node == nullptr) return {};
    const bool isCaseChange = to.node == from.node && to.folder != nullptr &&
                              to.name != to.node->name && text::EqualNoCase(to.name, to.node->name);
    if (isCaseChange && !to.folder->Children().HasOther(to.name, *to.node)) return {};
    return TreeFailure(kAlreadyExists, toPath);
}

Result<void> TreeFileSystem::Rename(const Place& from, const Place& to, std::string_view fromPath,
                                    std::string_view toPath) {
    TX_TRY(MayTake(from, fromPath));
    TX_TRY(MayAdd(to, toPath));
    auto node = Detach(*from.node);
    Attach(to, std::move(node), to.name);
    return {};
}

// The observer may have changed what stands there.
Result<void> TreeFileSystem::MoveAcross(const Place& source, std::string_view from,
                                        std::string_view to, const CopyObserver& observer) {
    TX_TRY(MayTake(source, from));
    TX_TRY(CopyFileOnly(from, to, false, observer));
    TX_TRY_ASSIGN(const Place now, NeedFile(from));
    Detach(*now.node);
    return {};
}

Result<void> TreeFileSystem::MoveFile(std::string_view from, std::string_view to,
                                      const CopyObserver& observer) {
    BeginChange();
    TX_TRY_ASSIGN(const Place source, NeedFile(from));
    TX_TRY_ASSIGN(const Place target, Walk(to));
    TX_TRY(CheckFree(source, target, to));
    TX_TRY(IsOneDisk(source, target) ? Rename(source, target, from, to)
                                     : MoveAcross(source, from, to, observer));
    NoteChange(TreeChange::kMoveFile, from, to);
    return {};
}

Result<void> TreeFileSystem::MoveFolder(std::string_view from, std::string_view to) {
    BeginChange();
    TX_TRY_ASSIGN(const Place source, NeedFolder(from));
    TX_TRY_ASSIGN(const Place target, Walk(to));
    if (source.folder == nullptr) return TreeFailure(kPermissionDenied, from);
    if (target.folder != nullptr && target.folder->IsWithin(*source.node)) {
        return TreeFailure(kPathFileAccess, to);
    }
    TX_TRY(CheckFree(source, target, to));
    if (!IsOneDisk(source, target)) return TreeFailure(kPermissionDenied, to);
    TX_TRY(Rename(source, target, from, to));
    NoteChange(TreeChange::kMoveFolder, from, to);
    return {};
}

// ---- content ----

Result<std::string> TreeFileSystem::BytesOf(TreeNode& file, std::uint64_t offset,
                                            std::size_t count) {
    return file.Bytes(offset, count);
}

Result<TreeNode*> TreeFileSystem::NeedBytes(std::string_view path, bool toWrite) {
    TX_TRY_ASSIGN(const Place place, NeedFile(path));
    TreeNode* node = place.node;
    if (node->IsLink()) {
        TX_TRY_ASSIGN(node, FileBehind(*node));
    }
    if (node == nullptr) return TreeFailure(kFileNotFound, path);
    TX_TRY(Fetch(*node));
    if ((node->attributes & kSpecial) != 0) return TreeFailure(kBadFileName, path);
    TX_TRY(CheckReadable(*node, path));
    const bool isKept = (node->attributes & kReadOnly) != 0 || DriveOf(*node)->IsReadOnly();
    if (toWrite && isKept) return TreeFailure(kPermissionDenied, path);
    return node;
}

Result<std::string> TreeFileSystem::ReadBytes(std::string_view path, std::uint64_t offset,
                                              std::size_t count) {
    TX_TRY_ASSIGN(TreeNode* const node, NeedBytes(path, false));
    return BytesOf(*node, offset, count);
}

// Brings a file's bytes into the tree, to be added to.
Result<void> TreeFileSystem::TakeIn(TreeNode& file) {
    if (file.isHeld) return {};
    TX_TRY_ASSIGN(file.content, BytesOf(file, 0, kTextLimit));
    file.size = file.content.size();
    file.isHeld = true;
    return {};
}

Result<void> TreeFileSystem::Append(TreeNode& file, std::string_view bytes) {
    TX_TRY(CheckRoom(file, bytes.size(), nullptr));
    file.content.resize(static_cast<std::size_t>(file.size), '\0');
    file.content += bytes;
    file.size = file.content.size();
    file.modified = Now();
    return {};
}

Result<std::unique_ptr<TextStream>> TreeFileSystem::CreateTextFile(std::string_view path,
                                                                   bool overwrite) {
    BeginChange();
    TX_TRY_ASSIGN(const Place place, Walk(path));
    if (place.node != nullptr) {
        if (!overwrite) return TreeFailure(kAlreadyExists, path);
        if (LeadsToFolder(*place.node)) return TreeFailure(kPathFileAccess, path);
        return OpenAsTextStream(path, OpenMode::kWrite);
    }
    TX_TRY(MayAdd(place, path));
    auto node = Made(TreeKind::kFile);
    Attach(place, node, place.name);
    NoteChange(TreeChange::kWriteText, path, {});
    return std::make_unique<TreeWriter>(*this, std::move(node));
}

Result<void> TreeFileSystem::ReplaceContent(std::string_view path, std::string_view from) {
    BeginChange();
    TX_TRY_ASSIGN(TreeNode* const source, NeedBytes(from, false));
    TX_TRY_ASSIGN(std::string bytes, BytesOf(*source, 0, kTextLimit));
    TX_TRY_ASSIGN(TreeNode* const node, NeedBytes(path, false));
    if (DriveOf(*node)->IsReadOnly()) return TreeFailure(kPermissionDenied, path);
    if (bytes.size() > node->size) TX_TRY(CheckRoom(*node, bytes.size() - node->size, nullptr));
    node->content = std::move(bytes);
    node->size = node->content.size();
    node->isHeld = true;
    node->modified = Now();
    NoteChange(TreeChange::kWriteText, path, {});
    return {};
}

Result<std::unique_ptr<TextStream>> TreeFileSystem::OpenAsTextStream(std::string_view path,
                                                                     OpenMode mode) {
    const bool toWrite = mode != OpenMode::kRead;
    if (toWrite) BeginChange();
    TX_TRY_ASSIGN(TreeNode* const node, NeedBytes(path, toWrite));
    if (!toWrite) {
        TX_TRY_ASSIGN(const std::string bytes, BytesOf(*node, 0, kTextLimit));
        return std::make_unique<TreeReader>(bytes);
    }
    if (node->isBeingWritten) return TreeFailure(kPermissionDenied, path);
    if (mode == OpenMode::kWrite) {
        node->content.clear();
        node->size = 0;
        node->isHeld = true;
        node->modified = Now();
    }
    TX_TRY(TakeIn(*node));
    NoteChange(TreeChange::kWriteText, path, {});
    return std::make_unique<TreeWriter>(*this, node->shared_from_this());
}

} // namespace tarvix::platform
