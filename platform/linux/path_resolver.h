#pragma once

#include "platform/linux/drive_table.h"
#include "platform/linux/errno_failure.h"
#include "platform/linux/folder_store.h"
#include "platform/linux/system_calls.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tarvix::platform {

// Where a drive path leads.
struct Resolved {
    std::string native;    // absolute native path; existing parts as the disk spells them
    std::string otherName; // disk name as it was asked for, where an object of another was found
    std::shared_ptr<const PathStart> start;

    std::optional<struct statx> st; // the object itself, links not followed; none when missing
    // The folder around an object that was seen by a search: no link led to it.
    std::shared_ptr<const UniqueFd> around;
    // As far as is known without a look, not even its folder stands.
    bool lacksFolder = false;

    bool Exists() const { return st.has_value(); }
    bool IsRoot() const { return native.size() == start->end; }
    const DriveTable& Drives() const { return *start->drives; }
    // Native path of the parent folder, and disk name of the object; `NameText` is ended by NUL.
    std::string_view Folder() const { return PartsOf(native).folder; }
    std::string_view NativeName() const { return PartsOf(native).name; }
    const char* NameText() const { return NativeName().data(); }
    // Disk name of the last part as it was asked for.
    std::string_view WantedName() const { return otherName.empty() ? NativeName() : otherName; }
    // The native path with that name, kept in `other` where an object has another.
    const std::string& WantedPath(std::string& other) const;
    // The path as the disk spells it.
    std::string DrivePath() const;
};

// Finds objects by drive path: the exact name first, then made short names, then without regard to
// case. Each routine gives 52 for a path that can't be one and 76 for an unknown drive. What is
// asked for at each object of a run is put into a new place that is kept where it is.
class PathResolver {
  public:
    PathResolver(Mounts& mounts, FolderStore& store) : mounts_(mounts), store_(store) {}

    // Where the path leads by its text alone; the disk isn't looked at.
    Result<Resolved> ByText(std::string_view path) const;
    Result<void> ByText(std::string_view path, Resolved& place) const;
    // The object: 53 missing, 76 when a folder on the way is missing.
    Result<Resolved> Existing(std::string_view path) const;
    // The object of exactly that name, down from a search location (bytes of the path) without a
    // link on the way (kChangedSinceSearch): 53, 76.
    Result<void> Below(std::string_view path, std::size_t location, Resolved& place) const;
    // Where a call that follows no link finds it from the search location; errnos. The text is that
    // of `place`.
    Sys<Location> FromLocation(std::string_view path, std::size_t location, Resolved& place) const;
    // The object or the place for a new one: 76 when its folder is missing.
    Result<Resolved> Target(std::string_view path) const;
    // The same for what will be put there in one step that never replaces anything (58): what
    // others put there just now may be missed, though not its folder.
    Result<Resolved> NewTarget(std::string_view path) const;
    // That place, if it is known to be free without a look at the disk, perhaps since its folder is
    // missing.
    bool KnownFree(std::string_view path, Resolved& place) const;
    // The same object with each name as the disk spells it, for file systems that find exact names
    // in any case.
    Result<Resolved> Spelled(Resolved place, std::string_view path) const;
    // A folder, or a link to one: 76.
    Result<Resolved> Folder(std::string_view path) const;
    // Anything but a folder; a link to a folder is taken: 53.
    Result<Resolved> File(std::string_view path) const;

  private:
    // The folder around an object alone, reached from the search location; none for a root.
    Result<void> FolderBelow(std::string_view path, std::size_t location, Resolved& place) const;
    // An object that is there, as the disk spells its name.
    struct Found {
        std::string name;
        struct statx st;
    };
    static std::size_t FolderLength(const Resolved& place, std::string_view below);
    bool ByWay(std::string_view path, Resolved& place) const;
    void NoteWay(const Resolved& place, std::string_view path) const;
    Sys<std::optional<Found>> FindIn(std::string_view folder, const std::string& wanted) const;
    // How much of a native path is the way to an object around its folder that stands there as it
    // is spelled; all before it does, too.
    std::size_t StandingLength(const std::string& native, std::size_t baseEnd) const;
    Result<Resolved> Loosely(Resolved exact, std::string_view path) const;
    Result<Resolved> ByWalk(Resolved place, std::string_view path) const;

    Mounts& mounts_;
    FolderStore& store_;
};

// Where a system call finds an object; the text is that of `place`.
Sys<Location> LocationOf(const Resolved& place, FolderStore& store);

// Whether an object is a folder, or a link that leads to one.
bool LeadsToFolder(const Resolved& place);

// The folder at a place, open to be read.
Sys<UniqueFd> OpenItself(const Resolved& place);

// The folder around a place, open to reach what is in it: 76.
Result<UniqueFd> OpenFolderOf(const Resolved& place, std::string_view path);

} // namespace tarvix::platform
