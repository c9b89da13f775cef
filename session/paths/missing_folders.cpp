#include "session/paths/missing_folders.h"

#include "platform/dir.h"
#include "platform/file_system.h"
#include "session/attempt.h"
#include "session/paths/short_path.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <optional>
#include <ranges>
#include <utility>
#include <vector>

namespace tarvix::session {

namespace {

constexpr std::size_t kMostRemembered = 100;
constexpr std::size_t kRootLength = 4; // "C:\x" is the shortest path that can be made

std::string FolderOf(std::string_view path, bool isFolderPath) {
    if (isFolderPath) return std::string(path);
    if (path.starts_with("\\\\")) return text::ParentFolderSlash(path);
    return text::ParentFolder(path);
}

bool Stands(platform::FileSystem& files, std::string_view folder) {
    return !files.KnownFree(folder) && !platform::DirName(files, folder, platform::kDirAll).empty();
}

ErrorContext ContextOf(const std::string& folder) {
    return {.routine = "CreateMissingFolder",
            .moduleName = "Module1",
            .object = folder,
            .path = folder,
            .searchOrDestination = folder,
            .objectType = ObjectType::kFolder};
}

// A missing parent is the chain's business.
std::optional<int> LeavesMissingParent(const platform::PlatformError& error) {
    if (error.number == platform::kPathNotFound) return kRecoveryNext;
    return {};
}

std::optional<int> LeavesAll(const platform::PlatformError& error) {
    return LeavesMissingParent(error).value_or(kRecoverySkip);
}

// Makes one folder and logs it.
Attempted<void> MakeOne(Session& session, const std::string& folder, MissingFolderResult& result) {
    auto made = Attempt(
        session, ContextOf(folder), [&] { return session.files().CreateFolder(folder); },
        result.isQuiet ? LeavesAll : LeavesMissingParent);
    if (made) {
        LogTimed(session, fmt::format(" Created {}", session.Shown(folder)));
        result.blnFolderCreated = true;
        result.made.push_back(folder);
        result.path = folder;
    }
    return made;
}

// A parent that stays missing is recorded here, any other error was when it came.
void NoteError(Session& session, const std::string& folder, const platform::PlatformError& error,
               MissingFolderResult& result) {
    if (error.number == platform::kPathNotFound && !result.isQuiet)
        HandleError(session, error, ContextOf(folder));
    result.errorNumber = error.number;
    result.errorText = session.Shown(error);
}

// The parents of a folder that can't be made yet, then the folder itself, topmost first.
void MakeChain(Session& session, std::string folder, MissingFolderResult& result) {
    std::vector<std::string> remembered;
    while (true) {
        const auto made = MakeOne(session, folder, result);
        if (made) break;
        const std::string parent = text::ParentFolder(folder);
        const bool canClimb = made.ErrorNumber() == platform::kPathNotFound &&
                              text::Length(parent) >= kRootLength && parent != folder &&
                              remembered.size() < kMostRemembered;
        if (!canClimb) return NoteError(session, folder, made.result.error(), result);
        remembered.push_back(std::exchange(folder, parent));
    }
    for (; !remembered.empty(); remembered.pop_back()) {
        const std::string& next = remembered.back();
        if (const auto made = MakeOne(session, next, result); !made) {
            return NoteError(session, next, made.result.error(), result);
        }
    }
}

} // namespace

MissingFolderResult CreateMissingFolder(Session& session, std::string_view path, bool isFolderPath,
                                        bool isQuiet) {
    MissingFolderResult result;
    result.isQuiet = isQuiet;
    std::string folder = text::CleanSpacesInPath(FolderOf(path, isFolderPath), true);
    if (ExceedsLimit(session, folder, kFolderPortion)) {
        folder = GetShortPathNameReturnCodes(session, folder).path;
    }
    result.path = folder;
    if (text::Length(folder) < kRootLength) return result;
    if (Stands(session.files(), folder)) {
        result.blnFolderAlreadyThere = true;
        return result;
    }
    MakeChain(session, folder, result);
    return result;
}

MissingFolderResult CreateMissing247Folder(Session& session, std::string_view path,
                                           bool isFolderPath) {
    return CreateMissingFolder(session, path, isFolderPath);
}

void RemoveMadeFolders(Session& session, const std::vector<std::string>& made) {
    for (const std::string& folder : std::views::reverse(made)) {
        if (!session.files().RemoveFolder(folder)) return;
        LogTimed(session, fmt::format(" Removed {}", session.Shown(folder)));
    }
}

} // namespace tarvix::session
