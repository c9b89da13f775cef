#pragma once

#include "platform/linux/drive_table.h"
#include "platform/linux/listing_store.h"
#include "platform/linux/name_table.h"
#include "platform/linux/system_calls.h"
#include "text/by_text.h"
#include "text/last_found.h"

#include <atomic>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::platform {

// The clock that belief is measured by, in nanoseconds that only grow.
struct StoreClock {
    std::function<std::int64_t()> now = SteadyNow;
    std::function<std::int64_t()> tick = SteadyTick; // may lag a few milliseconds behind
};

// What a store had to do, counted from its start.
struct StoreCounts {
    std::uint64_t resolved = 0; // drive paths followed
    std::uint64_t parsed = 0;   // of these, those taken apart name by name
    std::uint64_t walked = 0;   // objects reached from "/" on
    std::uint64_t asked = 0;    // folders looked at, to see whether what is known still stands
    std::uint64_t read = 0;     // folders whose names were read
};

// What is known of a place without a look at it.
enum class Vacancy : std::uint8_t {
    kUnknown,
    kName,   // nothing of that name is in its folder
    kFolder, // nor is there a folder around it
};

// What a drive path starts from, the same for all that lies in its folders.
struct PathStart {
    std::string root;    // "C:" or "\\server\share", as given, drive in upper case
    std::size_t end = 0; // of the drive's own folder in native paths; the names of the path follow
    std::shared_ptr<const DriveTable> drives;
};

// What is known of folders: where their drive paths lead, the names in them and, while a run of
// calls lasts, descriptors of those in hand. Safe to use from several threads.
//
// How long it is believed. Own changes are told to the store and count at once; what the disk
// contradicts (a name found here is missing, a free one is taken) is forgotten at once. Else:
//   where the text of a drive path leads            as long as the table of drives stands
//   which folder a path leads to                    5 ms, then it is looked at again
//   which folder no link leads to                   5 ms, then it is opened again
//   its names, when others may change it            as long as its date stands: looked at each time
//   its names, while we change it ourselves, so     20 ms, or 100 times what reading took; then
//     that its date tells nothing                   they are read again
//   that a name is free in it, while we change it   1 s, or as long as its names: asked only before
//                                                   calls that never replace
//
// What it saves for each object of a run that goes on in known folders:
//   texts         two drive paths to take apart (source and target)
//   descriptors   walks from "/" on, three for an object copied or moved; a call to open the
//                 target's folder and one to close it for a file that wasn't copied ahead
//   true folders  walks from the search location on, three for an object that was seen by a search
//   names         two looks at the target and one at its folder, since it is known to be free; all
//                 reading of a folder that was made here; and for the first object of a folder that
//                 is still to be made the walks that find out up to where it stands
class FolderStore {
  public:
    static constexpr std::int64_t kBelieved = 5'000'000; // nanoseconds

    // Names that `listings` has are taken from there; it may be null.
    explicit FolderStore(StoreClock clock = {}, std::shared_ptr<ListingStore> listings = nullptr)
        : clock_(std::move(clock)), listings_(std::move(listings)) {}

    std::int64_t Tick() const { return clock_.tick(); }
    StoreCounts Counts() const;

    // ---- texts ----

    // To be called for each drive path that is followed; `isParsed` when no way was known for it.
    void NoteResolved(bool isParsed);
    // What the way of a folder starts from, given by its drive path without a final "\", if it is
    // known for these drives: then `native` is its native path with a final "/", and has room for
    // so many bytes more.
    std::shared_ptr<const PathStart> FindWay(const DriveTable* drives, std::string_view folder,
                                             std::size_t room, std::string& native);
    // `native` is without a final "/", so "" for "/".
    void NoteWay(std::shared_ptr<const PathStart> start, std::string_view folder,
                 std::string_view native);

    // ---- descriptors ----

    // Holds folders between the first BeginRun and the last EndRun, and none at other times.
    void BeginRun() { ++depth_; }
    bool IsInRun() const { return depth_ > 0; }
    void EndRun();
    // As platform::Locate, from the folder around the object where it is held. A folder that is
    // asked for again and again, each time within 5 ms, becomes held; one that isn't is let go.
    Sys<Location> Locate(const std::string& native);
    Sys<struct statx> Stat(const std::string& native);
    // As Locate for an object that lies at least one name below a folder, given by the length of
    // its part of the path: from there on no link is followed (ELOOP, ENOTDIR).
    Sys<Location> LocateBelow(const std::string& native, std::size_t folderLength);
    // The same from that folder itself, so that the call itself must follow no link.
    Sys<Location> LocateFrom(const std::string& native, std::size_t folderLength);

    // ---- names; `folder` is an absolute native path ----

    // The disk name that `name` (drive form) stands for, as by NameTable. Errnos when the folder is
    // missing or can't be read.
    Sys<std::optional<std::string>> Find(std::string_view folder, std::string_view name);
    // Whether the folder around a native path has known names, and none like the last one of the
    // path: by no form and in no case. Nothing stands below what is missing so, either.
    Vacancy VacancyOf(std::string_view native);
    // Whether a disk name in the folder is equal to `nativeName` but for case and is not `except`.
    bool HasOther(std::string_view folder, std::string_view nativeName, std::string_view except);

    // ---- what this process did; paths are absolute native ones ----

    // An object was made, where others may have taken a folder away.
    void NoteMade(std::string_view native);
    // The same for a folder, which is empty but for what others put there since.
    void NoteFolderMade(std::string_view native);
    void NoteRemoved(std::string_view native);
    void NoteRenamed(std::string_view from, std::string_view to);
    // A folder, or a link to one, left its place: what is known of it and of those below goes, and
    // what is held by any road.
    void NoteMoved(std::string_view native);
    // The names in a folder and below it are read again when they are asked for.
    void Forget(std::string_view folder);

  private:
    struct Folder {
        // As it was last looked at.
        std::uint64_t device = 0;
        std::uint64_t inode = 0;
        FileTime modified = 0;
        std::int64_t checkedAt = 0;
        std::int64_t usedAt = 0;
        // Held.
        std::shared_ptr<const UniqueFd> fd;
        std::int64_t askedAt = 0;
        int asked = 0; // in so quick a succession that it may pay to hold it
        // Its names.
        std::optional<NameTable> names;
        FileTime namesDate = 0; // the folder's date when they were read
        std::int64_t readAt = 0;
        std::int64_t readCost = 0;
        bool isFresh = false; // changed so shortly before it was read that more may be hidden
        bool hasOwnChange = false;
        bool isCurrent = false; // nobody changed it since it was read, as it was last looked at
    };

    using Entry = text::ByText<Folder>::value_type; // with its native path

    struct Way {
        std::shared_ptr<const PathStart> start;
        std::string native; // with a final "/"
    };

    // A folder that no link led to, below one that its path led to.
    struct TrueFolder {
        std::string path;
        std::size_t folderLength = 0;
        std::shared_ptr<const UniqueFd> fd; // none while it is being opened
        std::int64_t openedAt = 0;
        std::uint64_t number = 0;
    };

    Entry& At(std::string_view path);
    Folder* WithNames(std::string_view path);
    bool LacksName(std::string_view path, Folder& known, std::string_view name);
    void Add(std::string_view native);
    void Remove(std::string_view native);
    Sys<void> LookAt(Entry& entry);
    static void Set(Folder& folder, const struct statx& st, std::int64_t now);
    static bool IsDue(const Folder& folder, std::int64_t now);
    Sys<Folder*> Valid(std::string_view path);
    Sys<void> Read(Entry& entry);
    void MakeRoom();
    std::shared_ptr<const UniqueFd> Held(std::string_view path);
    void Hold(Entry& entry);
    void Release(Entry& entry);
    Sys<std::shared_ptr<const UniqueFd>> TrueFolderAt(std::string_view path,
                                                      std::size_t folderLength);
    std::shared_ptr<const UniqueFd> KnownTrueFolder(std::string_view path, std::size_t folderLength,
                                                    std::int64_t now) const;
    std::shared_ptr<const UniqueFd> NoteOpening(TrueFolder folder);
    void NoteOpened(std::uint64_t number, const std::shared_ptr<const UniqueFd>& fd);
    Sys<UniqueFd> OpenTrueFolder(std::string_view path, std::size_t folderLength);
    void LetGo();
    void LetGoBelow(std::string_view path);

    const StoreClock clock_;
    const std::shared_ptr<ListingStore> listings_;
    std::atomic<int> depth_ = 0;

    // One for each of the three parts that follow, so that who copies ahead doesn't wait for what
    // is asked of names. The second may be taken while the first is held.
    mutable std::mutex mutex_;
    mutable std::mutex trueFoldersMutex_;
    mutable std::mutex waysMutex_;

    text::ByText<Folder> folders_; // by native path
    text::LastFound<Folder> lastFolders_;
    std::vector<Entry*> held_;
    std::size_t names_ = 0; // about as many as are kept; those of folders read again count twice
    StoreCounts counts_;

    std::deque<TrueFolder> trueFolders_; // the last opened at the end
    std::uint64_t lastOpened_ = 0;       // the number of that one

    std::shared_ptr<const DriveTable> drives_; // of the ways
    text::ByText<Way> ways_;
    text::LastFound<Way> lastWays_;

    std::atomic<std::uint64_t> resolved_ = 0;
    std::atomic<std::uint64_t> parsed_ = 0;
    std::atomic<std::uint64_t> walked_ = 0;
};

} // namespace tarvix::platform
