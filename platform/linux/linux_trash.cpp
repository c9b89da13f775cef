#include "platform/linux/linux_trash.h"

#include "platform/linux/glib_pointer.h"
#include "platform/linux/late_gio.h"
#include "platform/linux/trash_folder.h"
#include "platform/names.h"
#include "platform/try.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <cerrno>
#include <cstdlib>
#include <map>

namespace tarvix::platform {

namespace {
// The true path of the folder around a place.
Sys<std::string> TrueFolder(const Resolved& place) {
    if (place.around) return PathOf(place.around->Get());
    struct Free {
        void operator()(char* text) const { std::free(text); }
    };
    const std::unique_ptr<char, Free> real(
        ::realpath(std::string(place.Folder()).c_str(), nullptr));
    if (real == nullptr) return std::unexpected(errno);
    return std::string(real.get());
}

Sys<Location> LocationOf(const Resolved& place) {
    if (!place.around) return Locate(place.native);
    return Location{place.around, place.NameText()};
}

// The folder at which the file system of `folder` is mounted.
std::string TopOf(std::string folder, std::uint64_t device) {
    while (folder != "/") {
        const std::size_t slash = folder.rfind('/');
        const std::string outer = slash == 0 ? "/" : folder.substr(0, slash);
        const auto st = StatOfPath(outer);
        if (!st || DeviceOf(*st) != device) break;
        folder = outer;
    }
    return folder;
}

bool IsOfHome(std::uint64_t device) {
    const auto home = StatBehindPath(TX_GIO(g_get_home_dir)());
    return home && DeviceOf(*home) == device;
}

// One call of Recycle: the trash folders that it came by. They are held open no longer than that,
// since an open folder keeps a drive from being taken out.
class TrashRun {
  public:
    // What it took; the views stay until the next call.
    Sys<TakenObjects::Taken> Recycle(const Resolved& place) {
        auto taken = Take(place);
        if (taken || (taken.error() != ENOENT && taken.error() != ESTALE)) return taken;
        const auto location = LocationOf(place);
        if (!location || !StatOf(At(*location))) return taken;
        trashes_.clear(); // emptied by someone else, folders and all
        return Take(place);
    }

  private:
    Sys<TakenObjects::Taken> Take(const Resolved& place);
    Sys<TrashFolder*> TrashFor(const Resolved& place, const std::string& folder);

    std::map<std::uint64_t, TrashFolder> trashes_; // by device
    std::string folder_;                           // the last, as it was asked for
    std::shared_ptr<const UniqueFd> around_;       // of that one
    std::string trueFolder_;
    std::string held_; // name of the last in the trash
};

Sys<TakenObjects::Taken> TrashRun::Take(const Resolved& place) {
    const bool isKnown = folder_ == place.Folder() && around_ == place.around;
    if (!isKnown) {
        TX_TRY_ASSIGN(trueFolder_, TrueFolder(place));
        folder_ = place.Folder();
        around_ = place.around;
    }
    TX_TRY_ASSIGN(TrashFolder* const trash, TrashFor(place, trueFolder_));
    TX_TRY_ASSIGN(const Location location, LocationOf(place));
    const std::string path = text::Concat(
        {trueFolder_ == "/" ? std::string_view() : trueFolder_, "/", place.NativeName()});
    // It would go along, still in use.
    if (S_ISDIR(place.st->stx_mode) && place.Drives().HoldsMount(path)) {
        return std::unexpected(EBUSY);
    }
    const bool isNumbered = place.Drives().KeepsNumbersAt(DeviceOf(*place.st));
    TX_TRY_ASSIGN(held_, trash->Take(location, path, *place.st, place.around && isNumbered));
    return TakenObjects::Taken{.folder = trueFolder_,
                               .name = place.NativeName(),
                               .trash = trash->Path(),
                               .held = held_,
                               .stamp = StampOf(*place.st, isNumbered)};
}

Sys<TrashFolder*> TrashRun::TrashFor(const Resolved& place, const std::string& folder) {
    const std::uint64_t device = DeviceOf(*place.st);
    const auto known = trashes_.find(device);
    if (known != trashes_.end()) return &known->second;
    TX_TRY_ASSIGN(auto trash, IsOfHome(device) ? TrashFolder::OfHome()
                                               : TrashFolder::OfMount(TopOf(folder, device)));
    return &trashes_.emplace(device, std::move(trash)).first->second;
}

std::unexpected<PlatformError> TrashFailure(int error, const SeenObject& object) {
    const std::string_view path = object.path;
    switch (error) {
    case EREMCHG:
        return FailureBy(kChangedSinceSearch, path);
    case ENOTSUP:
    case EXDEV:
        return Failure(kPathFileAccess, fmt::format("There is no trash for {}.", ForDisplay(path)));
    case EBUSY:
        return HoldsMountFailure(path);
    case EINVAL: // the trash lies in it
        return FailureBy(kPermissionDenied, path);
    default:
        return FailureOf(error, path);
    }
}
} // namespace

Result<void> LinuxTrash::RecycleSeen(std::span<const SeenObject> objects,
                                     const TrashObserver& observer) {
    TrashRun run;
    for (std::size_t done = 0; done < objects.size(); ++done) {
        const SeenObject& object = objects[done];
        if (observer && !observer(done)) return FailureBy(kInterrupted, object.path);
        Resolved place;
        TX_TRY(files_.Seen(object, place));
        if (place.IsRoot()) return FailureBy(kPermissionDenied, object.path);
        const auto taken = run.Recycle(place);
        if (!taken) return TrashFailure(taken.error(), object);
        taken_.Add(*taken);
        files_.NoteGone(place);
    }
    return {};
}

Result<void> LinuxTrash::MayTake(std::string_view path) {
    const auto place = files_.Existing(path);
    if (!place) return {};
    const std::uint64_t device = DeviceOf(*place->st);
    if (IsOfHome(device)) return {};
    const auto folder = TrueFolder(*place);
    if (!folder || TrashFolder::MayBeMade(TopOf(*folder, device))) return {};
    return TrashFailure(ENOTSUP, SeenObject{.path = path, .sighting = {}});
}

Result<void> LinuxTrash::PutBack(std::size_t number) {
    const auto taken = taken_.At(number);
    if (!taken) return Failure(kFileNotFound, "The trash has taken no such object.");
    Resolved place;
    place.native =
        text::Concat({taken->folder == "/" ? std::string_view() : taken->folder, "/", taken->name});
    const std::string path = files_.DrivePathOf(place.native);
    const auto location = Locate(place.native);
    const auto back = location ? TrashFolder::GiveBack(std::string(taken->trash), taken->held,
                                                       taken->stamp, *location)
                               : Sys<void>(std::unexpected(location.error()));
    if (back) {
        files_.NoteBack(place);
        return {};
    }
    switch (back.error()) {
    case ESTALE:
        return Failure(kFileNotFound,
                       fmt::format("{} is not in the trash any more.", ForDisplay(path)));
    case ENOENT:
        return FailureBy(kPathNotFound, path);
    default:
        return FailureOf(back.error(), path);
    }
}

} // namespace tarvix::platform
