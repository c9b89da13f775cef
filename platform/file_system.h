#pragma once

#include "platform/error.h"
#include "platform/folder_listing.h"
#include "platform/foresight.h"
#include "platform/object_facts.h"
#include "platform/seen_object.h"
#include "platform/text_stream.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
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

// How far one copy has come. Totals are those of the object being copied; 0 while that of a folder
// isn't known yet.
struct CopyProgress {
    std::string_view path; // the file in hand
    std::uint64_t bytesDone = 0;
    std::uint64_t bytesTotal = 0;
};
// Called at least at every file and every few MiB. False abandons the copy with error 18; what was
// copied of the file in hand is removed.
using CopyObserver = std::function<bool(const CopyProgress&)>;

// A file that will probably be copied, and the folder that it will go to or, where that doesn't
// exist yet, any other on the same file system. Drive paths.
struct PlannedCopy {
    std::string_view from;
    std::string_view toFolder;
    std::uint32_t location = kAnyRoad; // that a search saw it from
};

// What one file system keeps of a path that it looked at. It means something to that one alone.
class Known {
  public:
    virtual ~Known() = default;
};

// An object as it was seen at `path`. Who paid for the look hands it on to the call that acts on
// the object, so that it isn't looked for again; a look that is no longer believed is taken anew.
struct Look {
    std::string path;
    ObjectFacts facts;
    std::shared_ptr<const Known> known; // none where the path says all
    // The search location that it was looked at from. One look from there holds its caller to that
    // very object: what another stands for by then is told by kChangedSinceSearch.
    std::uint32_t location = kAnyRoad;
};

// A new path at which nothing stands, as far as is known: what a duplicate test hands on to the
// call that puts an object there. That call never replaces anything, so a mistake is told by 58.
struct FreePlace {
    std::string path;
    std::shared_ptr<const Known> known;
};

// A text that is to stand in a stream as soon as a move is made; none without a stream, which must
// take texts from several threads, as those of file systems that take moves do.
struct MoveNote {
    std::shared_ptr<TextStream> stream;
    std::string text;
};

// How long to wait for moves that were handed over.
enum class MoveWait : std::uint8_t {
    kNone,
    kSome, // until about half of them are made, but a few milliseconds at most
    kAll,
    kStop, // for the one in hand; those behind it are given up
};

// What became of moves that were handed over, from the first on that wasn't told of yet.
struct HandedMoves {
    std::size_t made = 0; // each with its note written, or `unwritten` tells
    // Behind those; nothing stays done for them, nor will be: the first of them met something
    // that MoveFileTo would tell, or they were given up.
    std::size_t left = 0;
    // Of the first of them: another object had taken its place, was moved, and can't go back.
    std::optional<PlatformError> astray;
    std::optional<PlatformError> unwritten; // why a note isn't written
};

// A whole copy that has no name yet. Unless it gets one nothing of it is left, whatever happens.
class UnnamedCopy {
  public:
    virtual ~UnnamedCopy() = default;
    // Gives it the name that it was made for, and never replaces anything: 58. After a failure it
    // can be tried again.
    virtual Result<void> Name() = 0;
    // What isn't in it, special files and mounts of others, in a sentence; empty when it is whole.
    virtual std::string Missing() const { return {}; }
};

// One folder held open, for its names and for facts by name without walking its path again.
class OpenFolder {
  public:
    virtual ~OpenFolder() = default;
    // Replaces `listing` by the folder's names, without "." and "..", in `Dir` order.
    virtual Result<void> List(FolderListing& listing) = 0;
    // Facts of the exact name (no search without regard to case); 53 when it is gone.
    virtual Result<ObjectFacts> Facts(std::string_view name) = 0;
};

// Everything done to files. All paths are drive paths (ParseDrivePath), UTF-8, with or without a
// final "\". A name is looked for exactly first, then as a short name (53 when two names share it),
// then without regard to case (the first in `Dir` order); a target that exists in another case
// exists. Common failures: 52 a name that can't be a name here, 53 missing, 76 a folder on the way
// is missing, 70 refused, 61 disk full. A symbolic link on the way is walked through, one that is
// the last component is acted on itself, except by Open, ReadBytes and the text streams. No call
// leaves part of a file under its final name.
//
// Calls for files take anything but folders (53), calls for folders only folders (76); a link to a
// folder is taken by both.
class FileSystem {
  public:
    virtual ~FileSystem() = default;

    virtual Result<ObjectFacts> Facts(std::string_view path) = 0;
    // The same, to be handed on to CopyFileTo and the like.
    virtual Result<Look> LookAt(std::string_view path);
    // The object that was seen and no other, down from its search location by exact names: 53 or 76
    // when it has gone, kChangedSinceSearch when another stands there or a link leads there.
    virtual Result<Look> LookAtSeen(const SeenObject& seen);
    // The place at `path`, if it is known without a look at the disk that nothing stands there, by
    // any form and in any case. What others put there in the last second may be missed.
    virtual std::optional<FreePlace> KnownFree(std::string_view) { return std::nullopt; }
    // The path as the disk spells it: long names, true case, drive in upper case, links left in;
    // no final "\" but on a drive alone ("C:\"). 53 or 76.
    virtual Result<std::string> TruePath(std::string_view path) = 0;
    // Whether `inner` is `outer` itself or lies in it on the disk, by whatever road: links on the
    // way, drives that share a disk and other spellings are seen through, names of one file (hard
    // links) are one, and a link as `inner` counts as what it leads to, too. 53 or 76 when one is
    // missing.
    virtual Result<bool> Holds(std::string_view outer, std::string_view inner) = 0;
    // Each component in its stable 8.3 form; a component that is one already stays. 53 or 76.
    virtual Result<std::string> ShortPath(std::string_view path) = 0;
    // 76 missing or not a folder, 70 unreadable. A symbolic link to a folder is opened through.
    virtual Result<std::unique_ptr<OpenFolder>> Open(std::string_view folder) = 0;

    // Sets bits 1, 2, 4 and 32 as far as the file system can hold them; what it can't is no error.
    virtual Result<void> SetAttributes(std::string_view path, std::uint32_t attributes) = 0;
    // Copies one file or link with times, mode, extended attributes, access lists and holes. `to`
    // is the full new path. 58 when it exists and `overwrite` is false, 76 when its folder is
    // missing; with `overwrite`, 70 when it is read-only and 75 when it is a folder. An object that
    // exists keeps the spelling of its name. 75 for a special file and for a file onto itself.
    virtual Result<void> CopyFile(std::string_view from, std::string_view to, bool overwrite,
                                  const CopyObserver& observer) = 0;
    // The same for a folder with all that is in it, links as links, special files skipped and told
    // by error 75 after the rest was copied. A new folder gets its name when it is whole; after a
    // failure nothing of it is left. Merges into an existing folder, but never through a link, file
    // by file as CopyFile does (58, 70, 75), though below `to` names count exactly, so that "a" and
    // "A" stay two files; ends at the first failure, what was copied into it stays. 75 for a folder
    // into itself, before anything is made.
    virtual Result<void> CopyFolder(std::string_view from, std::string_view to, bool overwrite,
                                    const CopyObserver& observer) = 0;
    // CopyFile and CopyFolder in two steps: the copy is made whole first, so that what stands at
    // `to` can be taken away before the copy gets its name. A file that changes while it is copied
    // is copied once more, then given up with 75. The file system must outlive the copy.
    virtual Result<std::unique_ptr<UnnamedCopy>>
    PrepareFile(std::string_view from, std::string_view to, const CopyObserver& observer) = 0;
    virtual Result<std::unique_ptr<UnnamedCopy>>
    PrepareFolder(std::string_view from, std::string_view to, const CopyObserver& observer) = 0;
    // Takes away the copies without a name that runs which were killed left in a folder, and gives
    // the paths they had. What another run is writing stays. 70, 76.
    virtual Result<std::vector<std::string>> RemoveAbandoned(std::string_view) {
        return std::vector<std::string>();
    }
    // Tells which files will probably be copied next, in that order, so that their content can be
    // read and written ahead; each call replaces what the last one told. Only the first 128 count:
    // call it again before they are all copied, and with none when there are no more. Nothing of it
    // can be seen, and no result changes. `from` must be spelled as CopyFile will have it.
    virtual void CopySoon(std::span<const PlannedCopy>) {}
    // Renames without replacing: 58 when anything of the new name exists, though an object may get
    // its own name in another case. 76 when the target folder is missing. Across file systems: a
    // file is copied, synced and then removed; a folder is refused with 70. A folder into itself is
    // refused with 75. After a failure the source stands whole.
    virtual Result<void> MoveFile(std::string_view from, std::string_view to,
                                  const CopyObserver& observer) = 0;
    virtual Result<void> MoveFolder(std::string_view from, std::string_view to) = 0;
    // CopyFile, MoveFile and MoveFolder from an object that was looked at to a place that was found
    // free: nothing is ever replaced, 58 when the name is taken after all.
    virtual Result<void> CopyFileTo(const Look& from, const FreePlace& to,
                                    const CopyObserver& observer);
    virtual Result<void> MoveFileTo(const Look& from, const FreePlace& to,
                                    const CopyObserver& observer);
    virtual Result<void> MoveFolderTo(const Look& from, const FreePlace& to);
    // Moves a file by MoveFileTo while the caller goes on with the next: in the order of the calls,
    // each once the one before it is made and its note is written. The names count as changed at
    // once. False where the move may be more than a rename or isn't sure to be as it was looked at:
    // nothing was done then. TakeHanded tells what became of it; until it told of all, nothing else
    // may be changed.
    virtual bool HandMove(const Look&, const FreePlace&, MoveNote) { return false; }
    virtual HandedMoves TakeHanded(MoveWait) { return {}; }
    // PrepareFile and PrepareFolder of an object that was looked at.
    virtual Result<std::unique_ptr<UnnamedCopy>>
    PrepareFileOf(const Look& from, std::string_view to, const CopyObserver& observer);
    virtual Result<std::unique_ptr<UnnamedCopy>>
    PrepareFolderOf(const Look& from, std::string_view to, const CopyObserver& observer);
    // SetAttributes, DeleteFile and RemoveFolder of an object that was looked at.
    virtual Result<void> SetAttributesOf(const Look& object, std::uint32_t attributes);
    virtual Result<void> DeleteFileOf(const Look& object, bool force);
    virtual Result<void> RemoveFolderOf(const Look& object);
    // Deletes one file or link for good; a read-only one (70) only with `force`.
    virtual Result<void> DeleteFile(std::string_view path, bool force) = 0;
    // Removes an empty folder; 75 when it isn't empty, or is a link.
    virtual Result<void> RemoveFolder(std::string_view path) = 0;
    // Makes one folder; 75 when something of that name exists, 76 when its parent is missing.
    virtual Result<void> CreateFolder(std::string_view path) = 0;

    // Up to `count` bytes from `offset`; fewer at the end of the file. A link to a file is read
    // through; special files give 52, folders 53.
    virtual Result<std::string> ReadBytes(std::string_view path, std::uint64_t offset,
                                          std::size_t count) = 0;
    // 58 when the file exists and `overwrite` is false, 70 when it is read-only, 75 when it is a
    // folder, 52 when it is a special file. The file is there, empty, from this call on.
    virtual Result<std::unique_ptr<TextStream>> CreateTextFile(std::string_view path,
                                                               bool overwrite) = 0;
    // Gives an existing file, or the one that a link there leads to, the content of another file:
    // all of it or nothing. Its mode, owner and extended attributes stay, and so does the link. 53
    // when either is missing. Read-only files are taken, too.
    virtual Result<void> ReplaceContent(std::string_view path, std::string_view from) = 0;
    // An existing file (53) for reading, rewriting (it is emptied at once) or appending. 70 for
    // writing to a read-only one and to one that is being written through another stream, 52 for a
    // special file. A link to a file is opened through.
    virtual Result<std::unique_ptr<TextStream>> OpenAsTextStream(std::string_view path,
                                                                 OpenMode mode) = 0;

    // Called with true before and with false behind a run of calls that change objects one after
    // another in few folders; best by ManyChanges. Folders may be held open meanwhile, and what
    // others do to the folders themselves, such as giving them another name, be seen milliseconds
    // later.
    virtual void ExpectChanges(bool) {}

    // What would refuse a change before it is made; lives as long as this.
    virtual Foresight& Foresee();

    // Called with true before and with false behind several searches over the same folders; best by
    // KeptListings. What was read of folders may be kept meanwhile, as long as their dates stand.
    // No result changes.
    virtual void KeepListings(bool) {}

    virtual std::vector<DriveInfo> Drives() = 0;

    // Whether Facts, ReadBytes, Open and what it gives may be used from a second thread meanwhile.
    virtual bool AllowsReadingThreads() const { return false; }
};

// Names a copy; 75 with a sentence when it isn't whole.
Result<void> NameWhole(UnnamedCopy& copy);

// As long as it lives a file system knows that one change follows another.
class ManyChanges {
  public:
    explicit ManyChanges(FileSystem& files) : files_(files) { files_.ExpectChanges(true); }
    ~ManyChanges() { files_.ExpectChanges(false); }
    ManyChanges(const ManyChanges&) = delete;
    ManyChanges& operator=(const ManyChanges&) = delete;

  private:
    FileSystem& files_;
};

// Has a file system keep what it reads of folders for as long as it lives.
class KeptListings {
  public:
    explicit KeptListings(FileSystem& files) : files_(files) { files_.KeepListings(true); }
    ~KeptListings() { files_.KeepListings(false); }
    KeptListings(const KeptListings&) = delete;
    KeptListings& operator=(const KeptListings&) = delete;

  private:
    FileSystem& files_;
};

// `Facts` for a caller that wants one kind: 53 when it is missing or a folder.
Result<ObjectFacts> GetFile(FileSystem& files, std::string_view path);
// 76 when it is missing or a file.
Result<ObjectFacts> GetFolder(FileSystem& files, std::string_view path);
// `LookAt` for a caller that wants a file (53) or a folder (76).
Result<Look> LookAtFile(FileSystem& files, std::string_view path);
Result<Look> LookAtFolder(FileSystem& files, std::string_view path);
// `LookAtSeen` for a caller that wants what was seen as a file (53) or a folder (76).
Result<Look> LookAtSeenFile(FileSystem& files, const SeenObject& seen);
Result<Look> LookAtSeenFolder(FileSystem& files, const SeenObject& seen);
// What an object that was looked at is from then on.
SeenObject SeenAs(const Look& look);

} // namespace tarvix::platform
