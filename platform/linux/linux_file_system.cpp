#include "platform/linux/linux_file_system.h"

#include "platform/linux/held_folders.h"
#include "platform/linux/linux_open_folder.h"
#include "platform/linux/native_facts.h"
#include "platform/names.h"
#include "platform/short_names.h"

#include <cerrno>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>

namespace tarvix::platform {

namespace {
constexpr int kFolderFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

// Opens a folder only if no symbolic link lies on its path: then its path is its true one.
Sys<UniqueFd> OpenWithoutLinks(At at) {
    open_how how{};
    how.flags = kFolderFlags;
    how.resolve = RESOLVE_NO_SYMLINKS;
    UniqueFd fd(static_cast<int>(::syscall(SYS_openat2, at.folder, at.name, &how, sizeof how)));
    if (!fd) return std::unexpected(errno);
    return fd;
}

struct OpenedFolder {
    UniqueFd fd;
    std::string native; // its true path
};

Sys<OpenedFolder> OpenFolderAt(const std::string& native) {
    const auto location = Locate(native);
    if (!location) return std::unexpected(location.error());
    auto fd = OpenWithoutLinks(*location);
    if (fd && !location->folder) return OpenedFolder{std::move(*fd), native.empty() ? "/" : native};
    const bool isOtherwise = fd || fd.error() == ELOOP || fd.error() == ENOSYS ||
                             fd.error() == EPERM || fd.error() == EAGAIN;
    if (!isOtherwise) return std::unexpected(fd.error());
    fd = OpenAt(*location, kFolderFlags);
    if (!fd) return std::unexpected(fd.error());
    std::string truePath(PATH_MAX, '\0');
    const std::string link = "/proc/self/fd/" + std::to_string(fd->Get());
    const ssize_t length = ::readlink(link.c_str(), truePath.data(), truePath.size());
    truePath.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    if (truePath.empty()) truePath = native;
    return OpenedFolder{std::move(*fd), std::move(truePath)};
}

std::unique_ptr<OpenFolder> MakeOpenFolder(OpenedFolder opened, const Place& place,
                                           std::string_view path) {
    const DriveTable::Names* boundaries = place.drives->BoundariesIn(opened.native);
    return std::make_unique<LinuxOpenFolder>(std::move(opened.fd), place.drives, boundaries,
                                             std::string(path));
}

std::string ShortForm(std::string_view truePath) {
    std::string out;
    const bool isShare = truePath.starts_with("\\\\");
    std::size_t rootEnd = truePath.find('\\', isShare ? 2 : 0);
    if (isShare && rootEnd != truePath.npos) rootEnd = truePath.find('\\', rootEnd + 1);
    if (rootEnd == truePath.npos) return std::string(truePath);
    out = truePath.substr(0, rootEnd);
    while (rootEnd < truePath.size()) {
        const std::size_t end = std::min(truePath.find('\\', rootEnd + 1), truePath.size());
        out += '\\';
        if (end > rootEnd + 1) out += ShortNameOf(truePath.substr(rootEnd + 1, end - rootEnd - 1));
        rootEnd = end;
    }
    return out;
}
} // namespace

namespace {
// What a thread looked at last: who looks at an object mostly acts on it next.
class LastLook {
  public:
    void Keep(const void* files, std::string_view path, Place place) {
        files_ = files;
        path_ = path;
        place_ = std::move(place);
        at_ = SteadyNow();
    }
    void Drop() { files_ = nullptr; }
    // The place, unless more than a moment has gone by.
    std::optional<Place> Take(const void* files, std::string_view path) {
        if (files_ != files || path_ != path || SteadyNow() - at_ >= kLasts) return std::nullopt;
        Drop();
        return std::move(place_);
    }

  private:
    static constexpr std::int64_t kLasts = 1'000'000; // nanoseconds

    const void* files_ = nullptr;
    std::int64_t at_ = 0;
    std::string path_;
    Place place_;
};
thread_local LastLook lastLook; // at an object
thread_local LastLook lastFree; // at a place where none stands
} // namespace

Result<ObjectFacts> LinuxFileSystem::Facts(std::string_view path) {
    auto place = resolver_.Existing(path);
    if (!place) return std::unexpected(place.error());
    const auto location = Locate(place->native);
    if (!location) return FailureOf(location.error(), path);
    const std::string_view name = place->IsRoot() ? std::string_view() : place->NativeName();
    auto facts = FactsFrom(*place->st, name, *location, *place->drives);
    lastLook.Keep(this, path, std::move(*place));
    return facts;
}

bool LinuxFileSystem::SeemsFree(std::string_view path) {
    auto place = resolver_.FreePlace(path);
    if (!place) return false;
    lastFree.Keep(this, path, std::move(*place));
    return true;
}

Result<Place> LinuxFileSystem::FileLookedAt(std::string_view path) {
    auto seen = lastLook.Take(this, path);
    if (!seen || S_ISDIR(seen->st->stx_mode)) return resolver_.File(path);
    return std::move(*seen);
}

Result<Place> LinuxFileSystem::NewTarget(std::string_view path) {
    auto seen = lastFree.Take(this, path);
    if (!seen) return resolver_.NewTarget(path);
    return std::move(*seen);
}

Result<Place> LinuxFileSystem::TruePlace(std::string_view path) {
    auto place = resolver_.Existing(path);
    if (!place || !place->drives->FoldsCaseAt(DeviceOf(*place->st))) return place;
    return resolver_.Spelled(std::move(*place), path);
}

Result<std::string> LinuxFileSystem::TruePath(std::string_view path) {
    const auto place = TruePlace(path);
    if (!place) return std::unexpected(place.error());
    return place->DrivePath();
}

Result<std::string> LinuxFileSystem::ShortPath(std::string_view path) {
    const auto place = TruePlace(path);
    if (!place) return std::unexpected(place.error());
    return ShortForm(place->DrivePath());
}

Result<std::unique_ptr<OpenFolder>> LinuxFileSystem::Open(std::string_view folder) {
    auto place = resolver_.ByText(folder);
    if (!place) return std::unexpected(place.error());
    auto opened = OpenFolderAt(place->native);
    if (!opened && opened.error() == ENOENT) {
        place = resolver_.Folder(folder);
        if (!place) return std::unexpected(place.error());
        opened = OpenFolderAt(place->native);
    }
    if (opened) return MakeOpenFolder(std::move(*opened), *place, folder);
    if (opened.error() == ENOENT) return FailureBy(kPathNotFound, folder);
    return FailureOf(opened.error(), folder);
}

void LinuxFileSystem::SetBusy(bool isBusy) {
    HeldFolders& folders = HeldFolders::OfThread();
    isBusy ? folders.Begin() : folders.End();
}

std::vector<DriveInfo> LinuxFileSystem::Drives() {
    std::vector<DriveInfo> drives = mounts_.Refreshed()->Drives();
    for (DriveInfo& drive : drives) {
        if (drive.type == DriveType::kNetwork) continue; // asking one that is away takes minutes
        const auto st = StatBehindPath(drive.nativeMount);
        drive.isReady = st && S_ISDIR(st->stx_mode);
    }
    return drives;
}

namespace {
bool MayLeadToFolder(const Place& place) {
    return place.Exists() && (S_ISDIR(place.st->stx_mode) || S_ISLNK(place.st->stx_mode));
}
} // namespace

void LinuxFileSystem::ForgetLooks() {
    lastLook.Drop();
    lastFree.Drop();
}

void LinuxFileSystem::ForgetFolder(const std::string& native) {
    names_.Forget(native);
    HeldFolders::OfThread().LetGo();
}

void LinuxFileSystem::NoteMade(const Place& place) {
    ForgetLooks();
    HeldFolders::OfThread().LetGoAt(place.native);
    names_.NoteAdded(place.Folder(), place.NativeName());
}

void LinuxFileSystem::NoteRenamed(const Place& source, const Place& target) {
    ForgetLooks();
    if (MayLeadToFolder(source)) ForgetFolder(source.native);
    if (source.Folder() == target.Folder()) {
        names_.NoteRenamed(source.Folder(), source.NativeName(), target.WantedName());
    } else {
        names_.NoteRemoved(source.Folder(), source.NativeName());
        names_.NoteAdded(target.Folder(), target.WantedName());
    }
}

void LinuxFileSystem::NoteGone(const Place& place) {
    ForgetLooks();
    if (MayLeadToFolder(place)) ForgetFolder(place.native);
    names_.NoteRemoved(place.Folder(), place.NativeName());
}

} // namespace tarvix::platform
