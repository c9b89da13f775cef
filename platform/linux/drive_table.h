#pragma once

#include "platform/drive_path.h"
#include "platform/file_system.h"
#include "platform/linux/mount_table.h"

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace tarvix::platform {

// A letter that the user gave to a mount or to any other folder (native path).
using ExtraDrive = std::pair<char, std::string>;

// The drives as they are at one moment. It never changes, so that threads can share it.
class DriveTable {
  public:
    // Mounts that a former table gave a letter keep it.
    DriveTable(const std::vector<Mount>& mounts, const std::vector<ExtraDrive>& extraDrives,
               const DriveTable* former = nullptr);

    // In the order of their letters. Whether an extra drive's folder is there is not looked up.
    const std::vector<DriveInfo>& Drives() const { return drives_; }

    // The native folder that a path starts from, without a final "/" (so "" for "/"), and how many
    // of its names that folder has taken in. Nothing for a drive or share that is not known.
    struct Base {
        std::string folder;
        std::size_t namesTaken = 0;
    };
    std::optional<Base> BaseOf(const DrivePath& path) const;

    // The drive form of an absolute native path without "." and ".." in it.
    std::string ToDrive(std::string_view native) const;

    using Names = std::unordered_set<std::string>;
    // Disk names, in a folder given by its native path, of the mounts that a crawl leaves alone;
    // null when there are none.
    const Names* BoundariesIn(const std::string& folder) const;
    bool IsBoundaryDevice(std::uint64_t device) const;
    // Whether anything is mounted at a native path without links, or below it.
    bool HoldsMount(std::string_view native) const;

    // Of the file system with that device number: how it keeps DOS attributes, whether an object
    // keeps its number, and whether names that differ but in case are one name.
    DosAttributes DosAttributesAt(std::uint64_t device) const;
    bool KeepsNumbersAt(std::uint64_t device) const { return !losing_.contains(device); }
    bool FoldsCaseAt(std::uint64_t device) const { return folding_.contains(device); }

  private:
    struct Share {
        std::string unc; // upper case
        std::string folder;
    };
    void AddExtras(const std::vector<Mount>& mounts, const std::vector<ExtraDrive>& extraDrives);
    void AddMounts(const std::vector<Mount>& mounts, const DriveTable* former);
    void AddDrive(char letter, const std::string& native, const Mount* mount);
    char FreeLetter(const DriveTable* former) const;
    void NoteMount(const Mount& mount);

    std::vector<DriveInfo> drives_;
    std::map<std::string, char, std::less<>> letters_; // by mount, gone ones too
    std::vector<Share> shares_;
    std::unordered_map<std::string, Names> boundaries_;
    std::unordered_set<std::uint64_t> boundaryDevices_;
    std::unordered_map<std::uint64_t, DosAttributes> dosAttributes_;
    std::unordered_set<std::uint64_t> folding_;
    std::unordered_set<std::uint64_t> losing_; // where objects are given other numbers
    std::vector<std::string> points_;          // of all mounts, in order
};

// The current drives, kept up with the system's mount table. Safe to use from several threads.
class Mounts {
  public:
    using ReadText = std::function<std::string()>;

    // Without `readText` the mount table is that of this process.
    explicit Mounts(std::vector<ExtraDrive> extraDrives, ReadText readText = {});

    // The drives, at most a second old.
    std::shared_ptr<const DriveTable> Now();
    // Which table that is: to be compared with one that is held.
    const DriveTable* NowAt();
    // The drives as they are at this moment.
    std::shared_ptr<const DriveTable> Refreshed();

  private:
    void Refresh();

    std::vector<ExtraDrive> extraDrives_;
    ReadText readText_;
    std::mutex mutex_;
    std::string text_;
    std::shared_ptr<const DriveTable> table_;
    std::atomic<const DriveTable*> tableAt_ = nullptr; // changed under the lock
    std::atomic<std::int64_t> readAt_ = 0;             // so, too
};

} // namespace tarvix::platform
