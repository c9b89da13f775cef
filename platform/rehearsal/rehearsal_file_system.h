#pragma once

#include "platform/rehearsal/rehearsal_steps.h"
#include "platform/tree/tree_file_system.h"

#include <array>
#include <cstdint>
#include <functional>
#include <map>

namespace tarvix::platform {

struct RehearsalNode;

// A file system on which nothing is really changed. Reading goes through to the real one, as it
// would be after the changes recorded so far; changes are recorded in order and give the results
// that the real ones would, by what the real one foresees of rights and room, too. It can't foresee
// what only doing it would show, such as a failing device. Folders are read when they are first
// walked into, and kept from then on.
//
// What a link leads to isn't known here: a path through a link, or under another drive name, is a
// road of its own, and what is changed on the one road isn't seen on the other.
class RehearsalFileSystem : public TreeFileSystem {
  public:
    // `now` dates what is made; the system's clock unless given. `real` must outlive this.
    explicit RehearsalFileSystem(FileSystem& real, std::function<FileTime()> now = {});

    // The changes so far, in order.
    const RehearsalSteps& Steps() const { return steps_; }
    bool HasSteps() const { return steps_.Size() > 0; }
    // Starts again with the real file system as it is now.
    void Clear();

    Result<ObjectFacts> Facts(std::string_view path) override;
    Result<Look> LookAtSeen(const SeenObject& seen) override;
    Result<std::string> TruePath(std::string_view path) override;
    Result<bool> Holds(std::string_view outer, std::string_view inner) override;
    Result<std::string> ShortPath(std::string_view path) override;
    Result<std::unique_ptr<OpenFolder>> Open(std::string_view folder) override;
    Result<std::string> ReadBytes(std::string_view path, std::uint64_t offset,
                                  std::size_t count) override;
    Result<std::unique_ptr<TextStream>> OpenAsTextStream(std::string_view path,
                                                         OpenMode mode) override;
    std::vector<DriveInfo> Drives() override { return real_.Drives(); }

    // ---- for the open folders of this layer ----

    // A folder as it is after the changes so far.
    Result<std::unique_ptr<OpenFolder>> OpenRehearsed(std::string_view folder) {
        return TreeFileSystem::Open(folder);
    }

  protected:
    FileTime Now() const override { return now_(); }
    Result<const TreeDrive*> DriveNamed(std::string_view root, std::string_view path) override;
    std::shared_ptr<TreeNode> NewNode(TreeKind kind) const override;
    void CopyRest(const TreeNode& from, TreeNode& to) const override;
    TreeNode* FolderBehind(TreeNode& link) override;
    Result<TreeNode*> FileBehind(TreeNode& link) override;
    void NoteChange(TreeChange change, std::string_view from, std::string_view to) override;
    // What was read before the first change may be old.
    void BeginChange() override;
    void BeforeMoving(TreeNode& node) override;
    int WhyUnlisted(TreeNode& folder) override;
    Result<TreeNode*> FindUnlisted(TreeNode& folder, std::string_view name) override;
    Result<void> Fetch(TreeNode& node) override;
    Result<std::string> BytesOf(TreeNode& file, std::uint64_t offset, std::size_t count) override;
    Result<Place> Walk(std::string_view path) override;
    Result<void> CheckReadable(const TreeNode& file, std::string_view path) override;
    Result<void> CheckRoom(const TreeNode& folder, std::uint64_t more,
                           const TreeNode* source) override;
    Result<void> CheckAddTo(TreeNode& folder, std::string_view path) override;
    Result<void> CheckTake(TreeNode& node, std::string_view path) override;
    bool IsOneDisk(const Place& from, const Place& to) override;

  private:
    // A folder that paths were looked up in.
    struct Recent {
        std::string path;
        const TreeDrive* drive = nullptr;
        TreeNode* folder = nullptr;
    };

    void Load(RehearsalNode& folder);
    // The file system that a folder lies on, as far as it is known; else 0.
    std::uint64_t DiskOf(const TreeNode& folder);
    // Whether the object lies where it really lies, so that the real file system can tell of it.
    bool IsWhereItWas(std::string_view path, const TreeNode& node);
    void ForgetRecent() { recent_.fill({}); }

    FileSystem& real_;
    std::function<FileTime()> now_;
    RehearsalSteps steps_;
    std::map<std::uint64_t, DiskRoom> rooms_; // what the changes so far have left of each disk
    std::size_t vainTries_ = 0;               // changes asked for and refused before the first
    std::array<Recent, 4> recent_;            // the next to go first
    std::size_t nextRecent_ = 0;
};

} // namespace tarvix::platform
