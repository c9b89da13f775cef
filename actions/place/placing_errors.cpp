#include "actions/place/placing.h"
#include "actions/place/recycle.h"
#include "platform/dir.h"
#include "session/paths/missing_folders.h"
#include "session/prompt_id.h"
#include "session/tell.h"

#include <fmt/core.h>

#include <algorithm>
#include <iterator>

namespace tarvix::actions {

session::ErrorContext Placing::Context() const {
    return {.routine = verb_ == Verb::kCopy ? "CopyObject" : "MoveObject",
            .moduleName = "frmDialog",
            .object = object_.path,
            .path = object_.actual,
            .searchOrDestination = place_.path,
            .objectType =
                object_.isFile ? session::ObjectType::kFile : session::ObjectType::kFolder,
            .sentence = verb_ == Verb::kCopy
                            ? "has not proceeded as expected, copy did not occur."
                            : "has not proceeded as expected, move did not occur, but copy "
                              "may have occured."};
}

void Placing::Fail(const platform::PlatformError& error) {
    error_ = session_.Shown(error);
    hasFailed_ = true;
    errorNumber_ = error.number;
}

void Placing::NoteChanged() {
    isChanged_ = isSettled_ = true;
    error_ = ChangedText(session_, object_.path);
}

std::optional<int> Placing::OwnRule(const platform::PlatformError& error) {
    if (error.number == platform::kChangedSinceSearch) {
        NoteChanged();
        session::LogTimed(session_, fmt::format(" {}", error_));
        return session::kRecoveryLeave;
    }
    if (IsStop(error)) return LeaveStopped();
    if (error.number == platform::kPermissionDenied && !forceTried_ && !isPlaced_) {
        return ForceOnce();
    }
    if (error.number == platform::kAlreadyExists && wasFree_ && !isPlaced_) {
        return LeaveTaken();
    }
    if (error.number == platform::kPathNotFound && !pathTried_) {
        return MakePathOnce();
    }
    return std::nullopt;
}

std::optional<int> Placing::LeaveStopped() {
    isStopped_ = isSettled_ = true;
    session::LogTimed(session_,
                      fmt::format(" User stopped in the middle of {}, nothing of it was "
                                  "left at {}",
                                  session_.Shown(object_.path), session_.Shown(place_.path)));
    return session::kRecoveryLeave;
}

std::optional<int> Placing::LeaveTaken() {
    if (platform::WhatStands(session_.files(), place_.path).IsFree()) return std::nullopt;
    isTaken_ = isSettled_ = true;
    return session::kRecoveryLeave;
}

std::optional<int> Placing::MakePathOnce() {
    auto made = session::CreateMissingFolder(session_, place_.path, false);
    std::ranges::move(made.made, std::back_inserter(madeFolders_));
    pathTried_ = true;
    if (object_.isFile || !made.blnFolderAlreadyThere) return session::kRecoveryRetry;
    const bool isThere =
        session_.files().LookAtSeen(object_.Seen(platform::Same::kName)).has_value();
    // Nothing was tried yet: what stands there is no folder.
    if (isThere && !isTried_) return std::nullopt;
    TellDeepFolder(isThere);
    isSettled_ = true;
    return session::kRecoveryLeave;
}

void Placing::TellDeepFolder(bool isThere) const {
    if (!isThere) {
        return session::TellOrLog(
            session_, session::PromptId::kDeepFolder,
            fmt::format(" Folder: {}\r\n\r\nor Folder: {}\r\n\r\n has already been "
                        "removed, skipped.",
                        session_.Shown(object_.path), session_.Shown(place_.path)));
    }
    session::TellOrLog(
        session_, session::PromptId::kDeepFolder,
        fmt::format(" Folder: {}{}contains objects whose path exceed 259 characters, "
                    "skipped.",
                    session_.Shown(object_.path),
                    session_.state.options.blnAutoMode ? " " : "\r\n\r\n"));
}

std::optional<int> Placing::ForceOnce() {
    forceTried_ = true;
    if (verb_ == Verb::kCopy) return overwrites_ ? ForceCopy() : std::nullopt;
    // A copy beside its original is no rename.
    return verb_ == Verb::kMove ? ForceMove() : std::nullopt;
}

// Whatever stands there goes for a whole copy only.
bool Placing::ForceCopyThere() {
    if (!Replaces()) return Force([this] { return Copy(); });
    return Force([this] { return Prepare(); }) && MakeWay() && NameCopy();
}

std::optional<int> Placing::ForceCopy() {
    isSettled_ = true;
    if (!ForceCopyThere()) return session::kRecoveryLeave;
    isPlaced_ = true;
    SetCombined();
    if (!hasFailed_) {
        session::LogTimed(session_,
                          fmt::format(" Copy {} -- to -- {} forced.", session_.Shown(object_.path),
                                      session_.Shown(place_.path)));
    }
    isDone_ = true;
    // The line comes first, then the report of an error without a number.
    session::HandleError(session_, platform::PlatformError{}, Context());
    hasFailed_ = true;
    return session::kRecoveryLeave;
}

std::optional<int> Placing::ForceMove() {
    isSettled_ = true;
    if (!ForceCopyThere()) return session::kRecoveryLeave;
    isPlaced_ = isDone_ = true;
    RecycleSource();
    LogForcedMove();
    return session::kRecoveryLeave;
}

void Placing::LogForcedMove() {
    const bool isRename = verb_ == Verb::kRename;
    session::LogTimed(
        session_,
        fmt::format(" {} {} -- {} -- {} forced{}", isRename ? "Renamed" : "Move",
                    session_.Shown(object_.path), isRename ? "as" : "to",
                    session_.Shown(place_.path),
                    overwrites_ ? "by copying and deleting and deleting original object.First the "
                                  "new location file being overwritten was placed in the recycle "
                                  "bin."
                                : "by copying and deleting."));
}

} // namespace tarvix::actions
