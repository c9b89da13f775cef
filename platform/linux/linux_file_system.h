#pragma once

#include "platform/file_system.h"
#include "platform/linux/copy_ahead.h"
#include "platform/linux/copy_run.h"
#include "platform/linux/drive_table.h"
#include "platform/linux/name_cache.h"
#include "platform/linux/path_resolver.h"

#include <memory>

namespace tarvix::platform {

// The disks of this machine. Facts, listings and reading are safe from several threads; what
// changes files is for one thread.
class LinuxFileSystem : public FileSystem {
  public:
    explicit LinuxFileSystem(Mounts& mounts, CopyRoads roads = {})
        : mounts_(mounts), resolver_(mounts, names_), roads_(roads) {}
    // The next one may come to lie at the same address.
    ~LinuxFileSystem() override { ForgetLooks(); }

    Result<ObjectFacts> Facts(std::string_view path) override;
    bool SeemsFree(std::string_view path) override;
    Result<std::string> TruePath(std::string_view path) override;
    Result<bool> Holds(std::string_view outer, std::string_view inner) override;
    Result<std::string> ShortPath(std::string_view path) override;
    Result<std::unique_ptr<OpenFolder>> Open(std::string_view folder) override;
    Result<void> SetAttributes(std::string_view path, std::uint32_t attributes) override;
    Result<void> CopyFile(std::string_view from, std::string_view to, bool overwrite,
                          const CopyObserver& observer) override;
    Result<void> CopyFolder(std::string_view from, std::string_view to, bool overwrite,
                            const CopyObserver& observer) override;
    void CopySoon(std::span<const PlannedCopy> copies) override;
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
    void SetBusy(bool isBusy) override;
    std::vector<DriveInfo> Drives() override;
    bool AllowsReadingThreads() const override { return true; }

    // ---- for the other parts of this machine ----

    // The object: 53 missing, 76 when a folder on the way is missing.
    Result<Place> Existing(std::string_view path) const { return resolver_.Existing(path); }
    // To be told when an object was taken away by another road.
    void NoteGone(const Place& place);

  private:
    Result<Place> TruePlace(std::string_view path);
    // A file as the same thread saw it less than a millisecond ago; else as it is now.
    Result<Place> FileLookedAt(std::string_view path);
    // The place for what is put there in one step that never replaces, by what the same thread was
    // told less than a millisecond ago.
    Result<Place> NewTarget(std::string_view path);
    static void ForgetLooks();
    // What is known of a folder that left its place.
    void ForgetFolder(const std::string& native);
    // A file for its bytes, links followed: 52, 53, and 70 for writing to a read-only one.
    Result<Place> FileForBytes(std::string_view path, bool toWrite);
    Result<void> CopyOne(const Place& source, const Place& target, std::string_view from,
                         std::string_view to, CopyRun& run);
    // Where the source of a planned copy lies, if its facts tell of each change. For any thread.
    bool FindAhead(AheadItem& item) const;
    CopyAhead* Ahead() { return roads_.ahead && roads_.unnamedParts ? &ahead_ : nullptr; }
    // Whether a target keeps an object from getting its name.
    bool IsTaken(const Place& source, const Place& target);
    Sys<void> Rename(const Place& source, const Place& target);
    Result<void> MoveAcross(const Place& source, const Place& target, std::string_view from,
                            std::string_view to, const CopyObserver& observer);
    void NoteMade(const Place& place);
    void NoteRenamed(const Place& source, const Place& target);

    Mounts& mounts_;
    NameCache names_;
    PathResolver resolver_;
    CopyRoads roads_;
    CopyAhead ahead_{roads_, [this](AheadItem& item) { return FindAhead(item); }};
};

} // namespace tarvix::platform
