#include "actions/engine.h"

#include "actions/action_progress.h"
#include "actions/no_short_path.h"
#include "actions/recycle.h"
#include "actions/system_hidden.h"
#include "platform/dir.h"
#include "platform/file_system.h"
#include "results/selection.h"
#include "session/ask_long_path.h"
#include "session/attempt.h"
#include "session/missing_folders.h"
#include "session/session.h"
#include "session/short_path.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/paths.h"

#include <algorithm>
#include <optional>

namespace tarvix::actions {

namespace {

using platform::ObjectFacts;
using session::Session;

constexpr std::size_t kLongestNewPath = 254;
constexpr std::size_t kMostErrorsKept = 100;
constexpr std::uint32_t kCarried = 1 + 2 + 4 + 32;
constexpr std::uint32_t kProtecting = 1 + 2 + 4;
constexpr std::uint32_t kPlainFolder = 16;
constexpr std::uint32_t kPlainFile = 0;

enum class Verb { kCopy, kMove, kRename };

// The folder that the object in hand was found in, with what lies between left out.
std::string SearchFolderOf(Session& session, const std::string& source) {
    const auto& tables = *session.selection;
    const auto index = session.state.action.lngIndex;
    if (index < 0 || index > tables.lngSelTop) return source;
    const std::string& relative = tables.strSelRelPath[static_cast<std::size_t>(index)];
    if (relative.empty() || !source.ends_with("\\" + relative)) return source;
    return source.substr(0, source.size() - relative.size() - 1);
}

// One object on its way to one place.
class Placing {
  public:
    Placing(Session& session, Verb verb, const std::string& source, const std::string& actual,
            std::string destination, bool isFile, std::string_view mode)
        : session_(session), action_(session.state.action), verb_(verb), source_(source),
          actual_(actual), destination_(std::move(destination)), isFile_(isFile), mode_(mode),
          overwrites_(mode == "overwrite") {}

    // The source's facts, when they were read just now.
    Placing& Knowing(const std::optional<ObjectFacts>& facts) {
        known_ = facts;
        return *this;
    }

    void Run() {
        action_.blnPlaced = action_.blnProtected = false;
        if (verb_ == Verb::kCopy && text::EqualNoCase(source_, destination_)) return;
        if (!FinishDestination()) return;
        ShowStatus();
        FindReadOnlyDrives();
        action_.blnPathNotFoundTried = false;
        if (overwrites_ && !MayOverwrite()) return;
        const bool isPlaced = ReadObjects() && MakePlain() && Place();
        if (!isPlaced) {
            RestoreDestination();
            return RestoreSource();
        }
        if (verb_ == Verb::kCopy) RestoreSource();
        SetCombined();
        LogPlaced();
    }

  private:
    // ---- the steps, in order ----

    bool FinishDestination() {
        destination_ = CleanedDestination(destination_, verb_ == Verb::kRename);
        action_.blnFolderAlreadyThere = false;
        if (text::Length(destination_) <= kLongestNewPath) return true;
        session::AskLongPath(session_, SearchFolderOf(session_, source_), destination_,
                             "CopyObject", "frmDialog");
        if (!session::ContinuesLongPath(session_)) return false;
        auto shortened =
            session::GetShortPathNameReturnCodes(session_, destination_, false, kLongestNewPath);
        destination_ = std::move(shortened.path);
        if (shortened.status == 3) return true;
        RefuseWithoutShortPath(session_, destination_, kLongestNewPath);
        return false;
    }

    void ShowStatus() {
        const char* word = verb_ == Verb::kCopy   ? "Copying "
                           : verb_ == Verb::kMove ? "Moving "
                                                  : "Renaming ";
        const char* between = verb_ == Verb::kRename ? "  as  " : "  to  ";
        session_.frmDialog.lblStatus.Caption = word + source_ + between + destination_;
        session_.Yield();
    }

    void FindReadOnlyDrives() {
        const auto isOn = [this](const std::string& path) {
            return std::ranges::any_of(action_.strCDDrives, [&path](const std::string& drive) {
                return text::EqualNoCase(text::Left(path, 2), drive);
            });
        };
        blnSourceOnCD_ = isOn(actual_);
        blnDestOnCD_ = isOn(destination_);
    }

    bool MayOverwrite() {
        if (action_.bytOverrideAnswer == session::kOverrideCancel) {
            session::LogTimed(session_, " User canceled delete of rest of files");
            return false;
        }
        if (!CheckSystemHidden(session_, source_, actual_, isFile_, true)) return true;
        action_.blnProtected = true;
        session::LogTimed(session_, " User did not override in override form, of " + source_ +
                                        " to overwrite " + destination_);
        return false;
    }

    bool ReadObjects() {
        if (known_) {
            sourceFacts_ = *known_;
        } else if (!Do([this] { return Read(actual_, sourceFacts_); })) {
            return false;
        }
        sourceAttributes_ = sourceFacts_.attributes & kCarried;
        if (!overwrites_) return true;
        // What stands there is not given up for what can't be copied.
        if (!Do([this] { return CanBeRead(); })) return false;
        if (!Do([this] { return Read(destination_, destinationFacts_); })) return false;
        destinationAttributes_ = destinationFacts_.attributes & kCarried;
        return true;
    }

    // A read-only or hidden object could not be copied, moved or overwritten.
    bool MakePlain() {
        if (overwrites_ && !blnDestOnCD_ && (destinationAttributes_ & kProtecting) != 0) {
            destinationIsPlain_ = Do([this] { return SetPlain(destination_); });
            if (!destinationIsPlain_) return false;
        }
        if (blnSourceOnCD_ || (sourceAttributes_ & kProtecting) == 0) return true;
        sourceIsPlain_ = Do([this] { return SetPlain(actual_); });
        return sourceIsPlain_;
    }

    bool Place() {
        if (overwrites_ && !RecycleDestination()) return false;
        if (verb_ == Verb::kCopy || overwrites_) {
            if (!Do([this] { return Copy(); })) return false;
        } else if (!Do([this] { return Move(); })) {
            return false;
        }
        isPlaced_ = true;
        if (verb_ != Verb::kCopy && overwrites_) RecycleSource();
        return true;
    }

    // What stands at the destination is kept in the recycle bin.
    bool RecycleDestination() {
        if (RecycleOne(session_, destination_)) {
            destinationIsPlain_ = false;
            isRecycled_ = true;
            session::LogTimed(session_, " Deleted " + destination_ +
                                            " to recycle bin before it was overwritten.");
            return true;
        }
        session::LogTimed(session_, " Was unable to delete " + destination_ +
                                        " to recycle bin and overwrite with " + source_ +
                                        " overwrite was skipped.");
        if (!session_.state.options.blnAutoMode) {
            session_.MsgBox("Was unable to delete: \r\n\r\n" + destination_ +
                            "\r\n\r\n to recycle bin and overwrite with: \r\n\r\n" + source_ +
                            "\r\n\r\n overwrite was skipped.");
        }
        return false;
    }

    // An original that can't go stays beside its copy.
    void RecycleSource() {
        RestoreSource();
        if (RecycleOne(session_, actual_)) return;
        isCopyOnly_ = true;
        action_.blnPlacedByMove = false;
        session::LogTimed(session_, " Was unable to delete " + source_ +
                                        (isFile_ ? " to recycle bin (file already copied)."
                                                 : " to recycle bin (folder already copied)."));
    }

    void RestoreSource() {
        if (!sourceIsPlain_) return;
        sourceIsPlain_ = false;
        (void)session_.files().SetAttributes(actual_, sourceAttributes_);
    }

    void RestoreDestination() {
        if (!destinationIsPlain_) return;
        destinationIsPlain_ = false;
        (void)session_.files().SetAttributes(destination_, destinationAttributes_);
    }

    void SetCombined() {
        const std::uint32_t combined =
            verb_ == Verb::kCopy ? CombineAttributes(sourceAttributes_, destinationAttributes_)
                                 : sourceAttributes_;
        // A copy or move carries what its source had by itself.
        const bool isCarried = !overwrites_ && (sourceAttributes_ & kProtecting) == 0;
        if (!isCarried && !blnDestOnCD_) {
            const bool set = Do([this, combined]() -> platform::Result<void> {
                ObjectFacts placed;
                if (auto read = Read(destination_, placed); !read) return read;
                if ((placed.attributes & kCarried) == combined) return {};
                return session_.files().SetAttributes(destination_, combined);
            });
            if (!set) return;
        }
        if (!overwrites_) return;
        session::LogTimed(session_, " Attributes of " + destination_ +
                                        " were combined since it overwrote another object.");
    }

    // Tells the loop what was done.
    void Note() {
        action_.blnPlaced = true;
        action_.blnPlacedByMove = verb_ != Verb::kCopy && !isCopyOnly_;
        action_.strPlacedAt = destination_;
    }

    void LogPlaced() {
        Note();
        if (failed_) return;
        const std::string mode(mode_);
        switch (verb_) {
        case Verb::kCopy:
            session::LogTimed(session_,
                              " Copy " + source_ + " -- to -- " + destination_ + " " + mode);
            break;
        case Verb::kMove:
            session::LogTimed(session_,
                              " Move " + source_ + " -- to -- " + destination_ + mode + ".");
            break;
        case Verb::kRename:
            session::LogTimed(session_, " Renamed " + source_ + " -- as -- " + destination_ + mode);
            break;
        }
    }

    // ---- the file system ----

    platform::Result<void> Read(const std::string& path, ObjectFacts& facts) {
        auto read = isFile_ ? platform::GetFile(session_.files(), path)
                            : platform::GetFolder(session_.files(), path);
        if (!read) return std::unexpected(std::move(read.error()));
        facts = *read;
        return {};
    }

    platform::Result<void> SetPlain(const std::string& path) {
        return session_.files().SetAttributes(path, isFile_ ? kPlainFile : kPlainFolder);
    }

    platform::Result<void> CanBeRead() {
        if ((sourceFacts_.attributes & platform::kSpecial) != 0) {
            return platform::Failure(platform::kPathFileAccess,
                                     source_ + " is a special file, which can't be copied.");
        }
        if (!isFile_ || sourceFacts_.IsLink()) return {};
        auto read = session_.files().ReadBytes(actual_, 0, 1);
        if (!read) return std::unexpected(std::move(read.error()));
        return {};
    }

    platform::Result<bool> DestinationStands() {
        auto facts = session_.files().Facts(destination_);
        if (facts) return true;
        const int number = facts.error().number;
        const bool isMissing =
            number == platform::kFileNotFound || number == platform::kPathNotFound;
        if (isMissing) return false;
        return std::unexpected(std::move(facts.error()));
    }

    // Never replaces: what stood there has gone to the recycle bin before.
    platform::Result<void> Copy() {
        auto& files = session_.files();
        if (isFile_) return files.CopyFile(actual_, destination_, false, ObserverOf(session_));
        if (auto may = MakeWay(); !may) return may;
        isOwn_ = true;
        return files.CopyFolder(actual_, destination_, false, ObserverOf(session_));
    }

    // A folder never goes into one that is there. What an earlier try left of it is taken away.
    platform::Result<void> MakeWay() {
        const auto stands = DestinationStands();
        if (!stands) return std::unexpected(stands.error());
        if (!*stands || (isOwn_ && RecycleOne(session_, destination_))) return {};
        return platform::Failure(
            platform::kAlreadyExists,
            destination_ + ": " + std::string(platform::ErrorText(platform::kAlreadyExists)) + ".");
    }

    platform::Result<void> Move() {
        auto& files = session_.files();
        isMoveTried_ = true;
        return isFile_ ? files.MoveFile(actual_, destination_, ObserverOf(session_))
                       : files.MoveFolder(actual_, destination_);
    }

    // ---- the error policy ----

    session::ErrorContext Context() const {
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

    // Runs one statement. False when the routine is to leave.
    template <class Statement>
    bool Do(Statement&& statement) {
        const auto done = session::Attempt(
            session_, Context(), statement,
            [this](const platform::PlatformError& error) { return OwnRule(error); });
        if (done) return true;
        if (!isSettled_) Fail(done.result.error());
        return false;
    }

    void Fail(const platform::PlatformError& error) {
        auto& told = session_.state.lastAction.errors;
        if (told.size() < kMostErrorsKept) told.push_back(error.description);
        failed_ = true;
        action_.blnErrorOccurred = true;
        // Every further copy would end the same way.
        if (error.number == platform::kDiskFull) action_.blnDiskFull = true;
    }

    std::optional<int> OwnRule(const platform::PlatformError& error) {
        if (error.number == platform::kPermissionDenied && !forceTried_ && !isPlaced_) {
            return ForceOnce();
        }
        if (error.number == platform::kPathNotFound && !action_.blnPathNotFoundTried) {
            return MakePathOnce();
        }
        return std::nullopt;
    }

    // 76, first time: the folder may be missing.
    std::optional<int> MakePathOnce() {
        const auto made = session::CreateMissingFolder(session_, destination_, false);
        action_.blnPathNotFoundTried = true;
        action_.blnFolderAlreadyThere = made.blnFolderAlreadyThere;
        if (isFile_ || !action_.blnFolderAlreadyThere) return session::kRecoveryRetry;
        const bool isThere =
            !platform::DirName(session_.files(), actual_, platform::kDirAll).empty();
        // Nothing was tried yet: what stands there is no folder.
        if (isThere && !isOwn_ && !isMoveTried_) return std::nullopt;
        TellDeepFolder(isThere);
        isSettled_ = true;
        return session::kRecoveryLeave;
    }

    void TellDeepFolder(bool isThere) {
        const bool isAutomatic = session_.state.options.blnAutoMode;
        std::string told = " Folder: " + source_;
        if (!isThere) {
            told += "\r\n\r\nor Folder: " + destination_ +
                    "\r\n\r\n has already been removed, skipped.";
        } else {
            if (isOwn_) (void)RecycleOne(session_, destination_);
            told += isAutomatic ? " " : "\r\n\r\n";
            told += "contains objects whose path exceed 259 characters, skipped.";
        }
        if (isAutomatic) {
            session::LogTimed(session_, told);
        } else {
            session_.MsgBox(told);
        }
    }

    // 70, first time: what the system refuses may go by copying and recycling.
    std::optional<int> ForceOnce() {
        forceTried_ = true;
        if (verb_ == Verb::kCopy) {
            if (!overwrites_) return std::nullopt;
            return ForceCopy();
        }
        return ForceMove();
    }

    // A statement of the forced road: its errors have no second chance.
    template <class Statement>
    bool Force(Statement&& statement) {
        const auto done = session::Attempt(session_, Context(), statement);
        if (!done) Fail(done.result.error());
        return static_cast<bool>(done);
    }

    std::optional<int> ForceCopy() {
        // A source that can't be read is no reason to take away what stands there.
        if (!CanBeRead()) return std::nullopt;
        isSettled_ = true;
        if (!isRecycled_ && !RecycleDestination()) return session::kRecoveryLeave;
        if (!Force([this] { return Copy(); })) return session::kRecoveryLeave;
        isPlaced_ = true;
        RestoreSource();
        SetCombined();
        if (!failed_) {
            session::LogTimed(session_,
                              " Copy " + source_ + " -- to -- " + destination_ + " forced.");
        }
        Note();
        // The line comes first, then the report of an error without a number.
        session::HandleError(session_, platform::PlatformError{}, Context());
        action_.blnErrorOccurred = true;
        return session::kRecoveryLeave;
    }

    std::optional<int> ForceMove() {
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

    void LogForcedMove() {
        const bool isRename = verb_ == Verb::kRename;
        std::string line = isRename ? " Renamed " : " Move ";
        line += source_ + (isRename ? " -- as -- " : " -- to -- ") + destination_ + " forced";
        line += overwrites_ ? "by copying and deleting and deleting original object.First the new "
                              "location file being overwritten was placed in the recycle bin."
                            : "by copying and deleting.";
        session::LogTimed(session_, line);
    }

    Session& session_;
    session::ActionState& action_;
    Verb verb_;
    const std::string& source_;
    const std::string& actual_;
    std::string destination_;
    bool isFile_;
    std::string_view mode_;
    bool overwrites_;
    bool blnSourceOnCD_ = false;
    bool blnDestOnCD_ = false;
    std::optional<ObjectFacts> known_;
    ObjectFacts sourceFacts_;
    ObjectFacts destinationFacts_;
    std::uint32_t sourceAttributes_ = 0;
    std::uint32_t destinationAttributes_ = 0;
    bool sourceIsPlain_ = false;
    bool destinationIsPlain_ = false;
    bool isRecycled_ = false; // what stood at the destination went to the recycle bin
    bool isOwn_ = false;      // what stands there is a copy of ours, perhaps in part
    bool isMoveTried_ = false;
    bool isCopyOnly_ = false; // moved, but the original could not go
    bool forceTried_ = false;
    bool isPlaced_ = false;  // the object stands at its new place
    bool isSettled_ = false; // told or logged already; the routine only leaves
    bool failed_ = false;
};

} // namespace

std::string CleanedDestination(const std::string& path, bool isRename) {
    const std::string_view own = text::FolderOwnName(path);
    const std::string_view name = text::Trim(own);
    const std::string parent = text::ParentFolder(path);
    return text::JoinPath(isRename ? parent : text::CleanSpacesInPath(parent, true),
                          name.empty() ? own : name);
}

std::uint32_t CombineAttributes(std::uint32_t a, std::uint32_t b) {
    return (a | b) & kCarried;
}

void CopyObject(Session& session, const std::string& strSource, const std::string& strSourceActual,
                std::string strDestination, bool blnIsFile, std::string_view strMode) {
    Placing(session, Verb::kCopy, strSource, strSourceActual, std::move(strDestination), blnIsFile,
            strMode)
        .Run();
}

void MoveObject(Session& session, const std::string& strSource, const std::string& strSourceActual,
                std::string strDestination, bool blnIsFile, bool blnIsRename,
                std::string_view strMode) {
    Placing(session, blnIsRename ? Verb::kRename : Verb::kMove, strSource, strSourceActual,
            std::move(strDestination), blnIsFile, strMode)
        .Run();
}

void OverWriteDuplicate(Session& session) {
    const auto& tables = *session.selection;
    const auto& action = session.state.action;
    const auto index = static_cast<std::size_t>(action.lngIndex);
    if (action.strDestination == tables.strSelPath[index]) return;
    CopyObject(session, tables.strSelPath[index], tables.strSelActualPath[index],
               action.strDestination, tables.blnSelIsFile[index], "overwrite");
}

void PerformMoveOrCopy(Session& session) {
    const auto& tables = *session.selection;
    const auto& action = session.state.action;
    if (action.blnNoDestination) return;
    const auto index = static_cast<std::size_t>(action.lngIndex);
    const std::string& path = tables.strSelPath[index];
    const std::string& actual = tables.strSelActualPath[index];
    const bool isFile = tables.blnSelIsFile[index];
    std::optional<ObjectFacts> facts;
    const bool isProtected = CheckSystemHidden(session, path, actual, isFile, false, &facts);
    const Verb verb = action.blnMove && !isProtected ? Verb::kMove : Verb::kCopy;
    Placing(session, verb, path, actual, action.strDestination, isFile, "").Knowing(facts).Run();
}

} // namespace tarvix::actions
