#include "actions/place/placing.h"
#include "actions/place/recycle.h"
#include "platform/dir.h"
#include "session/paths/missing_folders.h"
#include "session/prompt_id.h"
#include "session/tell.h"

namespace tarvix::actions {

namespace {

constexpr std::size_t kMostErrorsKept = 100;

} // namespace

session::ErrorContext Placing::Context() const {
    return {.routine = verb_ == Verb::kCopy ? "CopyObject" : "MoveObject",
            .moduleName = "frmDialog",
            .object = source_,
            .path = actual_,
            .searchOrDestination = destination_,
            .objectType = isFile_ ? session::ObjectType::kFile : session::ObjectType::kFolder,
            .sentence = verb_ == Verb::kCopy
                            ? "has not proceeded as expected, copy did not occur."
                            : "has not proceeded as expected, move did not occur, but copy "
                              "may have occured."};
}

void Placing::Fail(const platform::PlatformError& error) {
    auto& told = session_.state.lastAction.errors;
    if (told.size() < kMostErrorsKept) told.push_back(error.description);
    failed_ = true;
    action_.blnErrorOccurred = true;
    // Every further copy would end the same way.
    if (error.number == platform::kDiskFull) action_.blnDiskFull = true;
}

std::optional<int> Placing::OwnRule(const platform::PlatformError& error) {
    if (error.number == platform::kPermissionDenied && !forceTried_ && !isPlaced_) {
        return ForceOnce();
    }
    if (error.number == platform::kPathNotFound && !action_.blnPathNotFoundTried) {
        return MakePathOnce();
    }
    return std::nullopt;
}

std::optional<int> Placing::MakePathOnce() {
    const auto made = session::CreateMissingFolder(session_, destination_, false);
    action_.blnPathNotFoundTried = true;
    action_.blnFolderAlreadyThere = made.blnFolderAlreadyThere;
    if (isFile_ || !action_.blnFolderAlreadyThere) return session::kRecoveryRetry;
    const bool isThere = !platform::DirName(session_.files(), actual_, platform::kDirAll).empty();
    // Nothing was tried yet: what stands there is no folder.
    if (isThere && !isOwn_ && !isMoveTried_) return std::nullopt;
    TellDeepFolder(isThere);
    isSettled_ = true;
    return session::kRecoveryLeave;
}

void Placing::TellDeepFolder(bool isThere) {
    const bool isAutomatic = session_.state.options.blnAutoMode;
    std::string told = " Folder: " + source_;
    if (!isThere) {
        told +=
            "\r\n\r\nor Folder: " + destination_ + "\r\n\r\n has already been removed, skipped.";
    } else {
        if (isOwn_) (void)RecycleOne(session_, destination_);
        told += isAutomatic ? " " : "\r\n\r\n";
        told += "contains objects whose path exceed 259 characters, skipped.";
    }
    session::TellOrLog(session_, session::PromptId::kDeepFolder, told);
}

std::optional<int> Placing::ForceOnce() {
    forceTried_ = true;
    if (verb_ == Verb::kCopy) {
        if (!overwrites_) return std::nullopt;
        return ForceCopy();
    }
    return ForceMove();
}

std::optional<int> Placing::ForceCopy() {
    // A source that can't be read is no reason to take away what stands there.
    if (!CanBeRead()) return std::nullopt;
    isSettled_ = true;
    if (!isRecycled_ && !RecycleDestination()) return session::kRecoveryLeave;
    if (!Force([this] { return Copy(); })) return session::kRecoveryLeave;
    isPlaced_ = true;
    RestoreSource();
    SetCombined();
    if (!failed_) {
        session::LogTimed(session_, " Copy " + source_ + " -- to -- " + destination_ + " forced.");
    }
    Note();
    // The line comes first, then the report of an error without a number.
    session::HandleError(session_, platform::PlatformError{}, Context());
    action_.blnErrorOccurred = true;
    return session::kRecoveryLeave;
}

std::optional<int> Placing::ForceMove() {
    if (overwrites_ && !CanBeRead()) return std::nullopt;
    isSettled_ = true;
    if (overwrites_ && !isRecycled_ && !RecycleDestination()) return session::kRecoveryLeave;
    if (!Force([this] { return Copy(); })) return session::kRecoveryLeave;
    isPlaced_ = true;
    Note();
    if (sourceIsPlain_) {
        (void)session_.files().SetAttributes(destination_, sourceAttributes_);
    }
    RecycleSource();
    LogForcedMove();
    return session::kRecoveryLeave;
}

void Placing::LogForcedMove() {
    const bool isRename = verb_ == Verb::kRename;
    std::string line = isRename ? " Renamed " : " Move ";
    line += source_ + (isRename ? " -- as -- " : " -- to -- ") + destination_ + " forced";
    line += overwrites_ ? "by copying and deleting and deleting original object.First the new "
                          "location file being overwritten was placed in the recycle bin."
                        : "by copying and deleting.";
    session::LogTimed(session_, line);
}

} // namespace tarvix::actions
