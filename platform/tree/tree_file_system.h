#pragma once

#include "platform/file_system.h"
#include "platform/tree/tree_node.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::platform {

// One drive of a tree. Nothing can be written to a CD-ROM (70).
struct TreeDrive {
    DriveInfo info;
    std::shared_ptr<TreeNode> top;

    bool IsReadOnly() const { return info.type == DriveType::kCdRom; }
};

enum class TreeChange : std::uint8_t {
    kCopyFile,
    kCopyFolder,
    kMoveFile,
    kMoveFolder,
    kDeleteFile,
    kRemoveFolder,
    kCreateFolder,
    kSetAttributes,
    kRecycle,
    kWriteText, // a text file made, emptied or added to
};

// The failure with that number and a sentence that names `path`.
std::unexpected<PlatformError> TreeFailure(int number, std::string_view path);

// What a FileSystem promises, kept by trees in memory: how names are looked up, what may be made,
// copied, moved and removed, and which numbers refusals have. Who derives from it says what drives
// there are, what stands on them before anything is changed, and what links lead to.
class TreeFileSystem : public FileSystem {
  public:
    Result<ObjectFacts> Facts(std::string_view path) override;
    Result<Look> LookAtSeen(const SeenObject& seen) override;
    Result<std::string> TruePath(std::string_view path) override;
    Result<std::string> ShortPath(std::string_view path) override;
    Result<std::unique_ptr<OpenFolder>> Open(std::string_view folder) override;
    Result<void> SetAttributes(std::string_view path, std::uint32_t attributes) override;
    Result<void> CopyFile(std::string_view from, std::string_view to, bool overwrite,
                          const CopyObserver& observer) override;
    Result<void> CopyFolder(std::string_view from, std::string_view to, bool overwrite,
                            const CopyObserver& observer) override;
    Result<std::unique_ptr<UnnamedCopy>> PrepareFile(std::string_view from, std::string_view to,
                                                     const CopyObserver& observer) override;
    Result<std::unique_ptr<UnnamedCopy>> PrepareFolder(std::string_view from, std::string_view to,
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
    Result<void> ReplaceContent(std::string_view path, std::string_view from) override;
    Result<std::unique_ptr<TextStream>> OpenAsTextStream(std::string_view path,
                                                         OpenMode mode) override;

    // ---- for the streams, open folders and trash of the tree ----

    Result<ObjectFacts> FactsOf(TreeNode& node);
    // Whether it is a folder or a link to one.
    bool LeadsToFolder(TreeNode& node) { return FolderAt(node) != nullptr; }
    // Whether an object still hangs in a drive's tree.
    bool IsOnDisk(const TreeNode& node) const { return DriveOf(node) != nullptr; }
    // Adds to the end of a file; 61 when there is no room.
    Result<void> Append(TreeNode& file, std::string_view bytes);
    // Takes an object with all it holds out of the tree, to the trash. 53, 70, 76.
    Result<std::shared_ptr<TreeNode>> TakeAway(std::string_view path);

  protected:
    // Where a path leads: its folder and the object, null when there is none of that name. The
    // folder is null for a drive itself.
    struct Place {
        const TreeDrive* drive = nullptr;
        TreeNode* folder = nullptr;
        TreeNode* node = nullptr;
        std::string_view name; // of the path that was walked
        std::string_view nativeName;
    };

    // ---- what differs from tree to tree ----

    virtual FileTime Now() const = 0;
    // A drive by its root, spelled as given; `path` is for the failure.
    virtual Result<const TreeDrive*> DriveNamed(std::string_view root, std::string_view path) = 0;
    virtual std::shared_ptr<TreeNode> NewNode(TreeKind kind) const = 0;
    // Gives a copy what this class doesn't know of.
    virtual void CopyRest(const TreeNode& from, TreeNode& to) const = 0;
    // What a link to a folder leads to, null for other links.
    virtual TreeNode* FolderBehind(TreeNode& link) = 0;
    // The object whose bytes a link's are, null when it leads to none or to a folder.
    virtual Result<TreeNode*> FileBehind(TreeNode& link) = 0;
    virtual void NoteChange(TreeChange change, std::string_view from, std::string_view to) = 0;
    // Called before a change is tried, and before an object goes into a folder or out of one.
    virtual void BeginChange() {}
    virtual void BeforeMoving(TreeNode&) {}
    // Why a folder can't be listed; 0 when it can and its objects are in the tree.
    virtual int WhyUnlisted(TreeNode& folder) = 0;
    // An object by its exact name in a folder that can't be listed.
    virtual Result<TreeNode*> FindUnlisted(TreeNode& folder, std::string_view name) = 0;
    // Puts an object's facts into it, if they aren't yet.
    virtual Result<void> Fetch(TreeNode&) { return {}; }
    virtual Result<std::string> BytesOf(TreeNode& file, std::uint64_t offset, std::size_t count);
    // 70 when a file's bytes can't be read.
    virtual Result<void> CheckReadable(const TreeNode&, std::string_view) { return {}; }
    // 61 when the drive of a node can't take so many more, which are written then; `source` is what
    // they are copied from, or null.
    virtual Result<void> CheckRoom(const TreeNode&, std::uint64_t, const TreeNode*) { return {}; }
    // 70 when a folder takes no new names, or when an object may not leave its folder. The path is
    // for the failure.
    virtual Result<void> CheckAddTo(TreeNode&, std::string_view) { return {}; }
    virtual Result<void> CheckTake(TreeNode&, std::string_view) { return {}; }
    // Whether what lies at one place can get another without being copied.
    virtual bool IsOneDisk(const Place& from, const Place& to) { return from.drive == to.drive; }

    // ---- looking up ----

    // 52, 76 and what DriveNamed answers.
    virtual Result<Place> Walk(std::string_view path) { return WalkAll(path, nullptr); }
    // The object must be there (53), and be no folder (53), or lead to a folder (76).
    Result<Place> Need(std::string_view path);
    Result<Place> NeedFile(std::string_view path);
    Result<Place> NeedFolder(std::string_view path);
    Result<Place> Below(const TreeDrive* drive, TreeNode& folder, std::string_view name,
                        std::string_view path);
    // The folder itself or behind a link, null for anything else.
    TreeNode* FolderAt(TreeNode& node);
    Result<TreeChildren*> ChildrenOf(TreeNode& folder, std::string_view path);
    const TreeDrive* DriveOf(const TreeNode& node) const;
    // An object in no folder, dated by the clock.
    std::shared_ptr<TreeNode> Made(TreeKind kind) const;
    void Attach(const Place& place, std::shared_ptr<TreeNode> node, std::string_view name);
    std::shared_ptr<TreeNode> Detach(TreeNode& node);

    std::map<std::string, TreeDrive, std::less<>> drives_; // by the root in upper case

  private:
    struct CopyRun;
    struct Aim;
    class Unnamed;

    Result<Place> WalkAll(std::string_view path, std::vector<const TreeNode*>* way);
    // Whether a place was reached from the search location by exact names and no link.
    Result<void> CheckRoad(const Place& place, const SeenObject& seen);
    template <class Spell>
    Result<std::string> Spelled(std::string_view path, Spell spell);
    // The file behind links, for its bytes: 52, 53, 70.
    Result<TreeNode*> NeedBytes(std::string_view path, bool toWrite);
    Result<void> TakeIn(TreeNode& file);

    std::shared_ptr<TreeNode> Duplicate(const TreeNode& node) const;
    Result<void> CheckReplace(const Place& to, const TreeNode& source, bool overwrite,
                              std::string_view path);
    Result<Place> FindTarget(const Aim& aim, const TreeNode& source);
    Result<void> CopyFileOnly(std::string_view from, std::string_view to, bool overwrite,
                              const CopyObserver& observer);
    Result<void> CopyObject(CopyRun& run, TreeNode& source, std::string_view from, const Aim& aim);
    Result<std::shared_ptr<TreeNode>> CopyUnchanged(CopyRun& run, TreeNode& source,
                                                    std::string_view from);
    Result<void> CheckCopy(const CopyRun& run, const TreeNode& source, const Place& place,
                           std::string_view from, std::string_view to);
    Result<void> CheckSubfolder(const CopyRun& run, TreeNode& source, const Place& to,
                                std::string_view from, std::string_view path);
    Result<void> CopySubfolder(CopyRun& run, TreeNode& source, const Place& to,
                               const std::string& from, const std::string& path);
    Result<void> CopyContent(CopyRun& run, TreeNode& source, TreeNode& target,
                             const std::string& from, const std::string& to);
    Result<void> CopyChild(CopyRun& run, TreeNode& source, TreeNode& target,
                           const std::string& from, const std::string& to);
    Result<std::shared_ptr<TreeNode>> MadeLike(TreeNode& source);
    std::uint64_t SizeOfTree(TreeNode& node);
    Result<void> MayAdd(const Place& place, std::string_view path);
    Result<void> MayTake(const Place& place, std::string_view path);
    Result<void> CheckFree(const Place& from, const Place& to, std::string_view toPath) const;
    Result<void> Rename(const Place& from, const Place& to, std::string_view fromPath,
                        std::string_view toPath);
    Result<void> MoveAcross(const Place& source, std::string_view from, std::string_view to,
                            const CopyObserver& observer);

    unsigned unnamed_ = 0; // folders that were made under a hidden name
};

} // namespace tarvix::platform
