#include "platform/linux/folder_reader.h"
#include "platform/linux/linux_file_system.h"
#include "platform/linux/part_file.h"
#include "platform/names.h"
#include "platform/try.h"

#include <fmt/core.h>

#include <cerrno>
#include <fcntl.h>

// Objects that a search saw: they are reached from the search location downward, compared, and
// acted on through the folder that was opened so.
namespace tarvix::platform {

namespace {
// Whether a folder that a search listed as an empty one is still so.
Result<void> CheckEmpty(At at, std::string_view path) {
    TX_TRY_ASSIGN(const UniqueFd fd, Named(OpenAt(at, O_RDONLY | O_DIRECTORY | O_NOFOLLOW), path));
    FolderReader reader(fd.Get());
    FolderReader::Entry entry{};
    if (reader.Next(entry)) return FailureBy(kChangedSinceSearch, path);
    if (reader.Error() != 0) return FailureOf(reader.Error(), path);
    return {};
}

// The number of a file that was deleted is soon given to another.
bool IsLaterBorn(const struct statx& st, const struct statx& source) {
    const bool tellsBirth = (st.stx_mask & source.stx_mask & STATX_BTIME) != 0;
    return tellsBirth && TimeOf(st.stx_btime) != TimeOf(source.stx_btime);
}
} // namespace

Result<ObjectFacts> LinuxFileSystem::Seen(const SeenObject& seen, Resolved& place) {
    const std::uint32_t location = seen.sighting.location;
    if (location == kAnyRoad) {
        TX_TRY_ASSIGN(place, resolver_.Existing(seen.path));
    } else {
        TX_TRY(resolver_.Below(seen.path, location, place));
    }
    TX_TRY_ASSIGN(const ObjectFacts facts, FactsOf(place, seen.path));
    TX_TRY(CheckSame(seen, facts));
    const bool mustBeEmpty = seen.same == Same::kContent && seen.sighting.wasEmpty;
    if (mustBeEmpty && S_ISDIR(place.st->stx_mode)) {
        TX_TRY_ASSIGN(const Location at, Named(LocationOf(place, store_), seen.path));
        TX_TRY(CheckEmpty(at, seen.path));
    }
    return facts;
}

// ---- what a look stands for ----

Result<const Resolved*> LinuxFileSystem::ObjectOf(const Look& look, Resolved& anew) {
    if (const Resolved* const believed = Believed(look.known.get())) return believed;
    if (look.location != kAnyRoad) {
        TX_TRY(Seen(SeenAs(look), anew));
    } else {
        TX_TRY_ASSIGN(anew, resolver_.Existing(look.path));
    }
    return &anew;
}

Result<const Resolved*> LinuxFileSystem::SourceOf(const Look& look, Resolved& anew) {
    TX_TRY_ASSIGN(const Resolved* const object, ObjectOf(look, anew));
    if (S_ISDIR(object->st->stx_mode)) return FailureBy(kFileNotFound, look.path);
    return object;
}

Result<const Resolved*> LinuxFileSystem::FolderOf(const Look& look, Resolved& anew) {
    auto object = ObjectOf(look, anew);
    const bool isMissing = !object && object.error().number == kFileNotFound;
    if (isMissing || (object && !LeadsToFolder(**object))) {
        return FailureBy(kPathNotFound, look.path);
    }
    return object;
}

// ---- after a move ----

bool LinuxFileSystem::IsExchanged(const Resolved& source, const Location& there) {
    if (!source.around || !source.Drives().KeepsNumbersAt(DeviceOf(*source.st))) return false;
    const auto st = StatOf(At(there));
    return st && (!IsSameObject(*st, *source.st) || IsLaterBorn(*st, *source.st));
}

bool LinuxFileSystem::TakeBack(const Resolved& source, const Resolved& target,
                               const Location& there) {
    const auto st = StatOf(At(there));
    const auto here = LocationOf(source, store_);
    const bool isFolder = st && S_ISDIR(st->stx_mode);
    const bool isBack = here && RenameWithoutReplacing(there, *here, isFolder, roads_);
    NoteChanged();
    store_.Forget(source.Folder());
    store_.Forget(target.Folder());
    return isBack;
}

PlatformError LinuxFileSystem::AstrayError(std::string_view from, std::string_view to) {
    return {kChangedSinceSearch,
            fmt::format("{} was exchanged for another object while it was being moved. That one is "
                        "at {}.",
                        ForDisplay(from), ForDisplay(to))};
}

// A rename goes by name, so that another object may have come to it since it was looked at.
Result<void> LinuxFileSystem::CheckMoved(const Resolved& source, const Resolved& target,
                                         const Location& there, std::string_view from,
                                         std::string_view to) {
    if (!IsExchanged(source, there)) return {};
    if (TakeBack(source, target, there)) return FailureBy(kChangedSinceSearch, from);
    return std::unexpected(AstrayError(from, to));
}

// Beside the source it is the folder of the source, whatever its path leads to by then.
Sys<Location> LinuxFileSystem::NewLocation(const Resolved& source, const Resolved& target,
                                           const std::string& native) {
    if (!source.around || source.Folder() != target.Folder()) return store_.Locate(native);
    return Location{source.around, native.c_str() + text::LastOf(native, '/') + 1};
}

} // namespace tarvix::platform
