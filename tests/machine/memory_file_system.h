#pragma once

#include "platform/tree/tree_file_system.h"
#include "tests/machine/memory_node.h"

#include <functional>
#include <limits>
#include <map>
#include <optional>

namespace tarvix::platform {

struct DrivePath;

constexpr std::uint64_t kUnlimited = std::numeric_limits<std::uint64_t>::max();

// What was asked of a disk, with paths as they were given.
struct MemoryCalls {
    std::vector<std::string> listed;   // folders
    std::vector<std::string> read;     // files of which bytes or lines were read
    std::vector<std::string> made;     // targets of copies and moves, folders, new text files
    std::vector<std::string> removed;  // deleted objects and sources of moves
    std::vector<std::string> recycled; // objects sent to the trash
    std::size_t facts = 0;             // calls for facts
};

// Drives that live in memory and behave as FileSystem promises, with helpers for tests. Drive C:
// is there from the start. Objects made through the interface are dated by the clock given.
class MemoryFileSystem : public TreeFileSystem {
  public:
    MemoryFileSystem();

    // ---- for tests ----

    // "E:" or "\\server\share", mounted at "/media/e" and "/mnt/server/share" unless told. Nothing
    // can be written to a CD-ROM (70).
    void AddDrive(std::string_view root, DriveType type = DriveType::kFixed,
                  std::string_view fileSystem = "ext4", std::string_view nativeMount = {});
    // A drive that isn't ready answers 71.
    void SetReady(std::string_view root, bool isReady);
    // The bytes that all files of a drive may have together; 61 beyond.
    void SetCapacity(std::string_view root, std::uint64_t bytes);
    void UseClock(std::function<FileTime()> now) { now_ = std::move(now); }

    // Each makes the folders on the way and gives the new object, to set its fields; an object of
    // that name is replaced (AddFolder gives the one that is there). All names count exactly, so
    // that "a" and "A" can stand side by side. The drive must exist.
    MemoryNode& AddFile(std::string_view path, std::string_view content = {});
    MemoryNode& AddFileOfSize(std::string_view path, std::uint64_t size);
    MemoryNode& AddFolder(std::string_view path);
    MemoryNode& AddLink(std::string_view path, std::string_view target);
    MemoryNode& AddSpecial(std::string_view path);
    // A file by its name in the disk's own bytes.
    MemoryNode& AddNative(std::string_view folder, std::string_view nativeName,
                          std::string_view content = {});
    // A file as a disk tells it whose names are given in a narrower set of characters: it is listed
    // as `shownName`, which holds a "?", and can't be opened by that. `nativeName` tells those
    // apart.
    MemoryNode& AddUnopenable(std::string_view folder, std::string_view shownName,
                              std::string_view nativeName, std::string_view content = {});

    // The object at a path, as the interface would find it, or null.
    MemoryNode* Node(std::string_view path);
    bool Exists(std::string_view path) { return Node(path) != nullptr; }
    // A file's bytes; nothing when there is no such file.
    std::optional<std::string> Content(std::string_view path);
    // The paths of all files, links and special files; or of all folders; in `Dir` order.
    std::vector<std::string> AllFiles() const;
    std::vector<std::string> AllFolders() const;

    const MemoryCalls& Calls() const { return calls_; }
    void ForgetCalls() { calls_ = {}; }

    // ---- FileSystem ----

    Result<ObjectFacts> Facts(std::string_view path) override;
    Result<bool> Holds(std::string_view outer, std::string_view inner) override;
    Result<std::unique_ptr<OpenFolder>> Open(std::string_view folder) override;
    Result<std::string> ReadBytes(std::string_view path, std::uint64_t offset,
                                  std::size_t count) override;
    Result<std::unique_ptr<TextStream>> OpenAsTextStream(std::string_view path,
                                                         OpenMode mode) override;
    std::vector<DriveInfo> Drives() override;
    Foresight& Foresee() override { return foresight_; }

    // Puts an object under a path that is free (58) in a folder that exists (76). 70.
    Result<void> PutBack(std::string_view path, std::shared_ptr<TreeNode> node);

  protected:
    FileTime Now() const override { return now_(); }
    // 76 for one that isn't there, 71 for one that isn't ready.
    Result<const TreeDrive*> DriveNamed(std::string_view root, std::string_view path) override;
    std::shared_ptr<TreeNode> NewNode(TreeKind kind) const override;
    void CopyRest(const TreeNode& from, TreeNode& to) const override;
    TreeNode* FolderBehind(TreeNode& link) override;
    Result<TreeNode*> FileBehind(TreeNode& link) override;
    void NoteChange(TreeChange change, std::string_view from, std::string_view to) override;
    void BeforeMoving(TreeNode& node) override;
    int WhyUnlisted(TreeNode& folder) override;
    Result<TreeNode*> FindUnlisted(TreeNode& folder, std::string_view name) override;
    Result<void> CheckAddTo(TreeNode& folder, std::string_view path) override;
    Result<void> CheckTake(TreeNode& node, std::string_view path) override;
    Result<void> CheckReadable(const TreeNode& node, std::string_view path) override;
    Result<void> CheckRoom(const TreeNode& node, std::uint64_t more,
                           const TreeNode* source) override;

  private:
    // Tells what the calls themselves go by.
    class Ahead : public Foresight {
      public:
        explicit Ahead(MemoryFileSystem& files) : files_(files) {}
        Result<void> MayRead(std::string_view path) override;
        Result<void> MayAddTo(std::string_view folder) override;
        Result<void> MayTake(std::string_view path) override;
        std::optional<DiskRoom> RoomIn(std::string_view folder) override;

      private:
        MemoryFileSystem& files_;
    };

    TreeDrive* FindDrive(std::string_view root);
    std::string PathOf(const TreeNode& node) const;
    // What a chain of links leads to, or null.
    TreeNode* Followed(TreeNode& node);
    MemoryNode& AddNode(std::string_view path, TreeKind kind);
    TreeNode& FolderFor(const DrivePath& path);

    Ahead foresight_{*this};
    std::map<std::string, std::uint64_t> capacities_; // in bytes, by the root in upper case
    MemoryCalls calls_;
    std::function<FileTime()> now_;
    std::string lastFolderPath_; // the folder that the last object was added to
    TreeNode* lastFolder_ = nullptr;
    int linksFollowed_ = 0; // one behind the other
};

} // namespace tarvix::platform
