#pragma once

#include "platform/file_system.h"
#include "platform/rehearsal/rehearsal_steps.h"
#include "platform/rehearsal/rehearsal_tree.h"

namespace tarvix::platform {

// A file system on which nothing is really changed. Reading goes through to the real one, as it
// would be after the changes recorded so far; changes are recorded in order and give the results
// that the real ones would. It can't foresee refusals that only doing it would show: rights of
// others, a full disk, a failing device.
//
// What a link leads to isn't known here: a path through a link is a road of its own, and what is
// changed on the one road isn't seen on the other. The observer of a copy must not change files
// here.
class RehearsalFileSystem : public FileSystem {
  public:
    // `now` dates what is made; the system's clock unless given.
    explicit RehearsalFileSystem(FileSystem& real, std::function<FileTime()> now = {});

    const RehearsalSteps& Steps() const { return steps_; }
    // Starts again with the real file system as it is now.
    void Clear();

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
    std::vector<DriveInfo> Drives() override { return real_.Drives(); }

    // ---- for the parts of this layer ----

    // Records that an object went to the trash.
    Result<void> Recycle(std::string_view path);
    Result<void> List(std::string_view folder, FolderListing& listing);
    Result<ObjectFacts> ExactFacts(std::string_view folder, std::string_view name);
    bool HasSteps() const { return steps_.Size() > 0; }

  private:
    using Place = RehearsalTree::Place;
    struct CopyRun;

    // To be called before each change: what was read before the first one may be old.
    void Begin();
    // Whether the object lies where it really lies, so that the real file system can tell of it.
    bool IsWhereItWas(std::string_view path, const RehearsalNode& node);
    template <class Spell>
    Result<std::string> Spelled(std::string_view path, Spell spell);
    Result<RehearsalNode*> NeedBytes(std::string_view path, bool toWrite);
    Result<void> CheckReplace(const Place& to, const RehearsalNode& source, bool overwrite,
                              std::string_view path);
    Result<void> CopyObject(CopyRun& run, RehearsalNode& source, const Place& to,
                            std::string_view path);
    Result<void> CopyContent(CopyRun& run, RehearsalNode& source, RehearsalNode& target,
                             const std::string& from, const std::string& to);
    Result<void> CopyChild(CopyRun& run, RehearsalNode& source, RehearsalNode& target,
                           const std::string& from, const std::string& to);
    Result<void> CopySubfolder(CopyRun& run, RehearsalNode& source, const Place& to,
                               const std::string& from, const std::string& path);
    Result<void> CopyFileOnly(std::string_view from, std::string_view to, bool overwrite,
                              const CopyObserver& observer);
    Result<std::uint64_t> SizeOfTree(RehearsalNode& node);
    Result<void> Rename(const Place& from, const Place& to, std::string_view toPath);

    FileSystem& real_;
    RehearsalTree tree_;
    RehearsalSteps steps_;
    std::size_t vainTries_ = 0; // changes asked for and refused before the first
};

} // namespace tarvix::platform
