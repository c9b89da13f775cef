#pragma once

#include "platform/file_system.h"
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
class MemoryFileSystem : public FileSystem {
  public:
    MemoryFileSystem();
    ~MemoryFileSystem() override;

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
    // A file whose name, given in the disk's own bytes, can't be opened when it isn't UTF-8.
    MemoryNode& AddNative(std::string_view folder, std::string_view nativeName,
                          std::string_view content = {});

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
    Result<std::string> TruePath(std::string_view path) override;
    Result<bool> Holds(std::string_view outer, std::string_view inner) override;
    Result<std::string> ShortPath(std::string_view path) override;
    Result<std::unique_ptr<OpenFolder>> Open(std::string_view folder) override;
    Result<void> SetAttributes(std::string_view path, std::uint32_t attributes) override;
    Result<void> CopyFile(std::string_view from, std::string_view to, bool overwrite,
                          const CopyObserver& observer) override;
    Result<void> CopyFolder(std::string_view from, std::string_view to, bool overwrite,
                            const CopyObserver& observer) override;
    Result<void> MoveFile(std::string_view from, std::string_view to,
                          const CopyObserver& observer) override;
    Result<void> MoveFolder(std::string_view from, std::string_view to) override;
    Result<void> DeleteFile(std::string_view path, bool force) override;
    Result<void> RemoveFolder(std::string_view path) override;
    Result<void> CreateFolder(std::string_view path) override;
    Result<std::string> ReadBytes(std::string_view path, std::uint64_t offset,
                                  std::size_t count) override;
    Result<std::unique_ptr<TextStream>> CreateTextFile(std::string_view path,
                                                       bool overwrite) override;
    Result<std::unique_ptr<TextStream>> OpenAsTextStream(std::string_view path,
                                                         OpenMode mode) override;
    std::vector<DriveInfo> Drives() override;

    // ---- for the parts of this disk ----

    ObjectFacts FactsOf(MemoryNode& node);
    // 61 when the drive of `node` has no room for so many bytes more.
    Result<void> CheckRoom(const MemoryNode& node, std::uint64_t more) const;
    // Takes an object with all it holds out of the tree, and puts one into it under a path that is
    // free (58) in a folder that exists (76). 53, 70, 76.
    Result<std::shared_ptr<MemoryNode>> TakeAway(std::string_view path);
    Result<void> PutBack(std::string_view path, std::shared_ptr<MemoryNode> node);
    // Whether an object still hangs in a drive's tree.
    bool IsOnDisk(const MemoryNode& node) const { return DriveOf(node) != nullptr; }
    FileTime Now() const { return now_(); }

  private:
    struct Drive {
        DriveInfo info;
        std::shared_ptr<MemoryNode> root;
        std::uint64_t capacity = kUnlimited;

        bool IsReadOnly() const { return info.type == DriveType::kCdRom; }
    };
    // Where a path leads: its folder and the object, null when there is none of that name. The
    // folder is null for a drive itself.
    struct Place {
        const Drive* drive = nullptr;
        MemoryNode* folder = nullptr;
        MemoryNode* node = nullptr;
        std::string_view name; // of the path that was walked
    };
    struct CopyRun;

    Drive* FindDrive(std::string_view root);
    const Drive* DriveOf(const MemoryNode& node) const;
    std::string PathOf(const MemoryNode& node) const;
    // What a chain of links leads to, or null; `depth` links were followed before.
    MemoryNode* Followed(MemoryNode& node, int depth = 0);

    Result<Place> Walk(std::string_view path, int depth = 0);
    // The objects that a path names one after the other, links as they are. 53 or 76.
    Result<std::vector<MemoryNode*>> NodesOnTheWay(std::string_view path);
    // The object must be there (53), and be no folder (53), or nothing but a folder (76).
    Result<Place> Need(std::string_view path);
    Result<Place> NeedFile(std::string_view path);
    Result<Place> NeedFolder(std::string_view path);
    // A place that may be written to: 70 on a drive that can't be.
    Result<Place> NeedTarget(std::string_view path);
    // The file behind links, for its bytes: 52, 53, 70.
    Result<MemoryNode*> NeedBytes(std::string_view path, bool toWrite);

    MemoryNode& AddNode(std::string_view path, MemoryKind kind);
    MemoryNode& FolderFor(const DrivePath& path);
    std::shared_ptr<MemoryNode> NewNode(MemoryKind kind) const;

    Result<void> CheckReplace(const Place& to, const MemoryNode& source, bool overwrite,
                              std::string_view path);
    // Copies one file or link to where `findTarget` says, asked again after the last progress.
    Result<void> CopyObject(CopyRun& run, MemoryNode& source, std::string_view to,
                            const std::function<Result<Place>()>& findTarget);
    Result<void> CopyContent(CopyRun& run, MemoryNode& source, MemoryNode& target,
                             const std::string& path);
    Result<void> CopyChild(CopyRun& run, MemoryNode& source, MemoryNode& target,
                           const std::string& path);
    Result<void> CopySubfolder(CopyRun& run, MemoryNode& source, MemoryNode* existing,
                               MemoryNode& parent, std::string_view name, const std::string& path);
    Result<void> Rename(const Place& from, const Place& to, std::string_view toPath);

    std::map<std::string, Drive> drives_; // by the root in upper case
    MemoryCalls calls_;
    std::function<FileTime()> now_;
    std::string lastFolderPath_; // the folder that the last object was added to
    MemoryNode* lastFolder_ = nullptr;
};

} // namespace tarvix::platform
