#include "platform/file_system.h"

#include "platform/names.h"
#include "platform/try.h"

#include <fmt/core.h>

namespace tarvix::platform {

Foresight& FileSystem::Foresee() {
    static Foresight none;
    return none;
}

// ---- a system that keeps nothing of what it looked at ----

Result<Look> FileSystem::LookAt(std::string_view path) {
    TX_TRY_ASSIGN(const ObjectFacts facts, Facts(path));
    return Look{std::string(path), facts, nullptr};
}

Result<Look> FileSystem::LookAtSeen(const SeenObject& seen) {
    TX_TRY_ASSIGN(Look look, LookAt(seen.path));
    TX_TRY(CheckSame(seen, look.facts));
    look.location = seen.sighting.location;
    return look;
}

namespace {
// That it is still the object of the look, where that matters.
Result<void> StillStands(FileSystem& files, const Look& look) {
    if (look.location != kAnyRoad) TX_TRY(files.LookAtSeen(SeenAs(look)));
    return {};
}

Result<void> FolderStillStands(FileSystem& files, const Look& look) {
    auto stands = StillStands(files, look);
    if (!stands && stands.error().number == kFileNotFound) stands.error().number = kPathNotFound;
    return stands;
}
} // namespace

Result<void> FileSystem::CopyFileTo(const Look& from, const FreePlace& to,
                                    const CopyObserver& observer) {
    TX_TRY(StillStands(*this, from));
    return CopyFile(from.path, to.path, false, observer);
}

Result<void> FileSystem::MoveFileTo(const Look& from, const FreePlace& to,
                                    const CopyObserver& observer) {
    TX_TRY(StillStands(*this, from));
    return MoveFile(from.path, to.path, observer);
}

Result<void> FileSystem::MoveFolderTo(const Look& from, const FreePlace& to) {
    TX_TRY(FolderStillStands(*this, from));
    return MoveFolder(from.path, to.path);
}

Result<std::unique_ptr<UnnamedCopy>>
FileSystem::PrepareFileOf(const Look& from, std::string_view to, const CopyObserver& observer) {
    TX_TRY(StillStands(*this, from));
    return PrepareFile(from.path, to, observer);
}

Result<std::unique_ptr<UnnamedCopy>>
FileSystem::PrepareFolderOf(const Look& from, std::string_view to, const CopyObserver& observer) {
    TX_TRY(FolderStillStands(*this, from));
    return PrepareFolder(from.path, to, observer);
}

Result<void> FileSystem::SetAttributesOf(const Look& object, std::uint32_t attributes) {
    TX_TRY(StillStands(*this, object));
    return SetAttributes(object.path, attributes);
}

Result<void> FileSystem::DeleteFileOf(const Look& object, bool force) {
    TX_TRY(StillStands(*this, object));
    return DeleteFile(object.path, force);
}

Result<void> FileSystem::RemoveFolderOf(const Look& object) {
    TX_TRY(FolderStillStands(*this, object));
    return RemoveFolder(object.path);
}

Result<void> NameWhole(UnnamedCopy& copy) {
    TX_TRY(copy.Name());
    if (std::string missing = copy.Missing(); !missing.empty()) {
        return Failure(kPathFileAccess, std::move(missing));
    }
    return {};
}

SeenObject SeenAs(const Look& look) {
    return {.path = look.path,
            .sighting = {.identity = look.facts.identity,
                         .size = look.facts.size,
                         .attributes = look.facts.attributes,
                         .location = look.location},
            .same = Same::kObject};
}

// ---- one kind of object ----

namespace {
Result<Look> AsFile(Result<Look> look, std::string_view path) {
    if (look && look->facts.IsFolder()) {
        return std::unexpected(PlatformError{
            kFileNotFound, fmt::format("{} is a folder.", ForDisplay(path)), std::string(path)});
    }
    return look;
}

Result<Look> AsFolder(Result<Look> look, std::string_view path) {
    if (!look && look.error().number == kFileNotFound) look.error().number = kPathNotFound;
    if (look && !look->facts.IsFolder()) {
        return std::unexpected(PlatformError{kPathNotFound,
                                             fmt::format("{} is not a folder.", ForDisplay(path)),
                                             std::string(path)});
    }
    return look;
}
} // namespace

Result<Look> LookAtFile(FileSystem& files, std::string_view path) {
    return AsFile(files.LookAt(path), path);
}

Result<Look> LookAtFolder(FileSystem& files, std::string_view path) {
    return AsFolder(files.LookAt(path), path);
}

Result<Look> LookAtSeenFile(FileSystem& files, const SeenObject& seen) {
    return AsFile(files.LookAtSeen(seen), seen.path);
}

Result<Look> LookAtSeenFolder(FileSystem& files, const SeenObject& seen) {
    return AsFolder(files.LookAtSeen(seen), seen.path);
}

Result<ObjectFacts> GetFile(FileSystem& files, std::string_view path) {
    TX_TRY_ASSIGN(const Look look, LookAtFile(files, path));
    return look.facts;
}

Result<ObjectFacts> GetFolder(FileSystem& files, std::string_view path) {
    TX_TRY_ASSIGN(const Look look, LookAtFolder(files, path));
    return look.facts;
}

} // namespace tarvix::platform
