#include "platform/file_system.h"

#include "platform/names.h"
#include "platform/try.h"

#include <fmt/core.h>

namespace tarvix::platform {

// ---- a system that keeps nothing of what it looked at ----

Result<Look> FileSystem::LookAt(std::string_view path) {
    TX_TRY_ASSIGN(const ObjectFacts facts, Facts(path));
    return Look{std::string(path), facts, nullptr};
}

Result<void> FileSystem::CopyFileTo(const Look& from, const FreePlace& to,
                                    const CopyObserver& observer) {
    return CopyFile(from.path, to.path, false, observer);
}

Result<void> FileSystem::MoveFileTo(const Look& from, const FreePlace& to,
                                    const CopyObserver& observer) {
    return MoveFile(from.path, to.path, observer);
}

Result<void> FileSystem::MoveFolderTo(const Look& from, const FreePlace& to) {
    return MoveFolder(from.path, to.path);
}

Result<void> NameWhole(UnnamedCopy& copy) {
    TX_TRY(copy.Name());
    if (std::string missing = copy.Missing(); !missing.empty()) {
        return Failure(kPathFileAccess, std::move(missing));
    }
    return {};
}

// ---- one kind of object ----

Result<Look> LookAtFile(FileSystem& files, std::string_view path) {
    TX_TRY_ASSIGN(Look look, files.LookAt(path));
    if (look.facts.IsFolder()) {
        return std::unexpected(PlatformError{
            kFileNotFound, fmt::format("{} is a folder.", ForDisplay(path)), std::string(path)});
    }
    return look;
}

Result<Look> LookAtFolder(FileSystem& files, std::string_view path) {
    auto look = files.LookAt(path);
    if (!look && look.error().number == kFileNotFound) look.error().number = kPathNotFound;
    if (look && !look->facts.IsFolder()) {
        return std::unexpected(PlatformError{kPathNotFound,
                                             fmt::format("{} is not a folder.", ForDisplay(path)),
                                             std::string(path)});
    }
    return look;
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
