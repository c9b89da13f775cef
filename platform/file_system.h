#pragma once

#include "platform/error.h"
#include "platform/folder_listing.h"
#include "platform/object_facts.h"
#include "platform/text_stream.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::platform {

enum class DriveType { kUnknown, kRemovable, kFixed, kNetwork, kCdRom, kRamDisk };

struct DriveInfo {
    std::string path; // "C:"
    std::string nativeMount;
    DriveType type = DriveType::kUnknown;
    std::string fileSystem; // "ext4", "vfat", ...
    bool isReady = true;
};

// How far one copy has come. Totals are those of the object being copied.
struct CopyProgress {
    std::string_view path; // the file in hand
    std::uint64_t bytesDone = 0;
    std::uint64_t bytesTotal = 0;
};
// Called at least at every file and every few MiB. False abandons the copy with error 18; what was
// copied of the file in hand is removed.
using CopyObserver = std::function<bool(const CopyProgress&)>;

// One folder held open, for its names and for facts by name without walking its path again.
class OpenFolder {
  public:
    virtual ~OpenFolder() = default;
    // Replaces `listing` by the folder's names, without "." and "..", in `Dir` order.
    virtual Result<void> List(FolderListing& listing) = 0;
    // Facts of the exact name (no search without regard to case); 53 when it is gone.
    virtual Result<ObjectFacts> Facts(std::string_view name) = 0;
};

// Everything done to files. All paths are drive paths, UTF-8, with or without a final "\". A name
// is looked for exactly first, then as a short name, then without regard to case. Common failures:
// 52 a name that can't be a name here, 53 missing, 76 a folder on the way is missing, 70 refused,
// 61 disk full. No call follows a symbolic link that is the last component, and none leaves part
// of a file under its final name.
class FileSystem {
  public:
    virtual ~FileSystem() = default;

    virtual Result<ObjectFacts> Facts(std::string_view path) = 0;
    // The path as the disk spells it: long names, true case, drive in upper case. 53 or 76.
    virtual Result<std::string> TruePath(std::string_view path) = 0;
    // Each component in its stable 8.3 form; a component that is one already stays. 53 or 76.
    virtual Result<std::string> ShortPath(std::string_view path) = 0;
    // 76 missing or not a folder, 70 unreadable. A symbolic link to a folder is opened through.
    virtual Result<std::unique_ptr<OpenFolder>> Open(std::string_view folder) = 0;

    // Sets bits 1, 2, 4 and 32 as far as the file system can hold them; what it can't is no error.
    virtual Result<void> SetAttributes(std::string_view path, std::uint32_t attributes) = 0;
    // Copies one file or link with times, mode, extended attributes, access lists and holes. `to`
    // is the full new path. 58 when it exists and `overwrite` is false, 76 when its folder is
    // missing.
    virtual Result<void> CopyFile(std::string_view from, std::string_view to, bool overwrite,
                                  const CopyObserver& observer) = 0;
    // The same for a folder with all that is in it, links as links, special files skipped and told
    // by error 75 after the rest was copied. Merges into an existing folder.
    virtual Result<void> CopyFolder(std::string_view from, std::string_view to, bool overwrite,
                                    const CopyObserver& observer) = 0;
    // Renames without replacing (58). Across file systems: a file is copied, synced and then
    // removed; a folder is refused with 70. After a failure the source stands whole.
    virtual Result<void> MoveFile(std::string_view from, std::string_view to,
                                  const CopyObserver& observer) = 0;
    virtual Result<void> MoveFolder(std::string_view from, std::string_view to) = 0;
    // Deletes one file or link for good; a read-only one (70) only with `force`.
    virtual Result<void> DeleteFile(std::string_view path, bool force) = 0;
    // Removes an empty folder; 75 when it isn't empty.
    virtual Result<void> RemoveFolder(std::string_view path) = 0;
    // Makes one folder; 75 when something of that name exists, 76 when its parent is missing.
    virtual Result<void> CreateFolder(std::string_view path) = 0;

    // Up to `count` bytes from `offset`; fewer at the end of the file. Special files give 52.
    virtual Result<std::string> ReadBytes(std::string_view path, std::uint64_t offset,
                                          std::size_t count) = 0;
    // 58 when the file exists and `overwrite` is false.
    virtual Result<std::unique_ptr<TextStream>> CreateTextFile(std::string_view path,
                                                               bool overwrite) = 0;
    // An existing file (53) for reading, rewriting or appending.
    virtual Result<std::unique_ptr<TextStream>> OpenAsTextStream(std::string_view path,
                                                                 OpenMode mode) = 0;

    virtual std::vector<DriveInfo> Drives() = 0;
};

// `Facts` for a caller that wants one kind: 53 when it is missing or a folder.
Result<ObjectFacts> GetFile(FileSystem& files, std::string_view path);
// 76 when it is missing or a file.
Result<ObjectFacts> GetFolder(FileSystem& files, std::string_view path);

} // namespace tarvix::platform
