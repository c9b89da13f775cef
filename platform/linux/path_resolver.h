#pragma once

#include "platform/linux/drive_table.h"
#include "platform/linux/errno_failure.h"
#include "platform/linux/name_cache.h"
#include "platform/linux/system_calls.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tarvix::platform {

// Where a drive path leads.
struct Place {
    std::string root;        // "C:" or "\\server\share", as given, drive in upper case
    std::string native;      // absolute native path; existing parts as the disk spells them
    std::size_t baseEnd = 0; // behind the drive's own folder; the names of the path follow
    std::string otherName;   // disk name as it was asked for, where an object of another was found
    std::shared_ptr<const DriveTable> drives;

    std::optional<struct statx> st; // the object itself, links not followed; none when missing

    bool Exists() const { return st.has_value(); }
    bool IsRoot() const { return native.size() == baseEnd; }
    std::string_view Folder() const;     // native path of the parent folder
    std::string_view NativeName() const; // disk name of the object
    // Disk name of the last part as it was asked for.
    std::string_view WantedName() const { return otherName.empty() ? NativeName() : otherName; }
    // The path as the disk spells it.
    std::string DrivePath() const;
};

// Finds objects by drive path: the exact name first, then made short names, then without regard to
// case.
class PathResolver {
  public:
    PathResolver(Mounts& mounts, NameCache& names) : mounts_(mounts), names_(names) {}

    // Where the path leads by its text alone. 52, 76 for an unknown drive.
    Result<Place> ByText(std::string_view path) const;
    // The object: 53 missing, 76 when a folder on the way is missing.
    Result<Place> Existing(std::string_view path) const;
    // The object or the place for a new one: 76 when its folder is missing.
    Result<Place> Target(std::string_view path) const;
    // The same for what will be put there in one step that never replaces anything (58): what
    // others put there just now may be missed.
    Result<Place> NewTarget(std::string_view path) const;
    // That place, if it is known to be free without a look at the disk.
    std::optional<Place> FreePlace(std::string_view path) const;
    // The same object with each name as the disk spells it, for file systems that find exact names
    // in any case.
    Result<Place> Spelled(Place place, std::string_view path) const;
    // A folder, or a link to one: 76.
    Result<Place> Folder(std::string_view path) const;
    // Anything but a folder; a link to a folder is taken: 53.
    Result<Place> File(std::string_view path) const;

  private:
    Result<Place> Loosely(Place exact, std::string_view path) const;
    Result<Place> ByWalk(Place place, std::string_view path) const;
    Result<Place> InFolder(Place place, std::string_view path,
                           const std::optional<std::string>& name) const;

    Mounts& mounts_;
    NameCache& names_;
};

// Whether an object is a folder, or a link that leads to one.
bool LeadsToFolder(const Place& place);

// The folder around a place, open to reach what is in it: 76.
Result<UniqueFd> OpenFolderOf(const Place& place, std::string_view path);

} // namespace tarvix::platform
