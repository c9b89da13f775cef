#include "actions/place/placing.h"

#include "actions/place/engine.h"
#include "actions/place/no_short_path.h"
#include "actions/place/recycle.h"
#include "actions/place/system_hidden.h"
#include "actions/run/action_progress.h"
#include "results/selection.h"
#include "session/paths/ask_long_path.h"
#include "session/paths/short_path.h"
#include "session/prompt_id.h"
#include "session/tell.h"
#include "text/case.h"
#include "text/characters.h"

#include <algorithm>

namespace tarvix::actions {

namespace {

constexpr std::size_t kLongestNewPath = 254;
constexpr std::uint32_t kCarried = 1 + 2 + 4 + 32;
constexpr std::uint32_t kProtecting = 1 + 2 + 4;
constexpr std::uint32_t kPlainFolder = 16;
constexpr std::uint32_t kPlainFile = 0;

// The folder that the object in hand was found in, with what lies between left out.
std::string SearchFolderOf(Session& session, const std::string& source) {
    const auto& tables = *session.selection;
    const auto index = session.state.action.lngIndex;
    if (index < 0 || index > tables.lngSelTop) return source;
    const std::string& relative = tables.strSelRelPath[static_cast<std::size_t>(index)];
    if (relative.empty() || !source.ends_with("\\" + relative)) return source;
    return source.substr(0, source.size() - relative.size() - 1);
}

} // namespace

Placing& Placing::Knowing(const std::optional<ObjectFacts>& facts) {
    known_ = facts;
    return *this;
}

void Placing::Run() {
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

bool Placing::FinishDestination() {
    destination_ = CleanedDestination(destination_, verb_ == Verb::kRename);
    action_.blnFolderAlreadyThere = false;
    if (text::Length(destination_) <= kLongestNewPath) return true;
    session::AskLongPath(session_, SearchFolderOf(session_, source_), destination_, "CopyObject",
                         "frmDialog");
    if (!session::ContinuesLongPath(session_)) return false;
    auto shortened =
        session::GetShortPathNameReturnCodes(session_, destination_, false, kLongestNewPath);
    destination_ = std::move(shortened.path);
    if (shortened.status == 3) return true;
    RefuseWithoutShortPath(session_, destination_, kLongestNewPath);
    return false;
}

void Placing::ShowStatus() {
    const char* word = verb_ == Verb::kCopy   ? "Copying "
                       : verb_ == Verb::kMove ? "Moving "
                                              : "Renaming ";
    const char* between = verb_ == Verb::kRename ? "  as  " : "  to  ";
    session_.frmDialog.lblStatus.Caption = text::Concat({word, source_, between, destination_});
    session_.Yield();
}

void Placing::FindReadOnlyDrives() {
    const auto isOn = [this](const std::string& path) {
        return std::ranges::any_of(action_.strCDDrives, [&path](const std::string& drive) {
            return text::EqualNoCase(text::Left(path, 2), drive);
        });
    };
    blnSourceOnCD_ = isOn(actual_);
    blnDestOnCD_ = isOn(destination_);
}

bool Placing::MayOverwrite() {
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

bool Placing::ReadObjects() {
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

bool Placing::MakePlain() {
    if (overwrites_ && !blnDestOnCD_ && (destinationAttributes_ & kProtecting) != 0) {
        destinationIsPlain_ = Do([this] { return SetPlain(destination_); });
        if (!destinationIsPlain_) return false;
    }
    if (blnSourceOnCD_ || (sourceAttributes_ & kProtecting) == 0) return true;
    sourceIsPlain_ = Do([this] { return SetPlain(actual_); });
    return sourceIsPlain_;
}

bool Placing::Place() {
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

bool Placing::RecycleDestination() {
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
    session::TellUnlessAuto(session_, session::PromptId::kOverwriteNotRecycled,
                            "Was unable to delete: \r\n\r\n" + destination_ +
                                "\r\n\r\n to recycle bin and overwrite with: \r\n\r\n" + source_ +
                                "\r\n\r\n overwrite was skipped.");
    return false;
}

void Placing::RecycleSource() {
    RestoreSource();
    if (RecycleOne(session_, actual_)) return;
    isCopyOnly_ = true;
    action_.blnPlacedByMove = false;
    session::LogTimed(session_, " Was unable to delete " + source_ +
                                    (isFile_ ? " to recycle bin (file already copied)."
                                             : " to recycle bin (folder already copied)."));
}

void Placing::RestoreSource() {
    if (!sourceIsPlain_) return;
    sourceIsPlain_ = false;
    (void)session_.files().SetAttributes(actual_, sourceAttributes_);
}

void Placing::RestoreDestination() {
    if (!destinationIsPlain_) return;
    destinationIsPlain_ = false;
    (void)session_.files().SetAttributes(destination_, destinationAttributes_);
}

void Placing::SetCombined() {
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

void Placing::Note() {
    action_.blnPlaced = true;
    action_.blnPlacedByMove = verb_ != Verb::kCopy && !isCopyOnly_;
    action_.strPlacedAt = destination_;
}

void Placing::LogPlaced() {
    Note();
    if (failed_) return;
    std::string line;
    switch (verb_) {
    case Verb::kCopy:
        line = text::Concat({" Copy ", source_, " -- to -- ", destination_, " ", mode_});
        break;
    case Verb::kMove:
        line = text::Concat({" Move ", source_, " -- to -- ", destination_, mode_, "."});
        break;
    case Verb::kRename:
        line = text::Concat({" Renamed ", source_, " -- as -- ", destination_, mode_});
        break;
    }
    session::LogTimed(session_, line);
}

platform::Result<void> Placing::Read(const std::string& path, ObjectFacts& facts) {
    auto read = isFile_ ? platform::GetFile(session_.files(), path)
                        : platform::GetFolder(session_.files(), path);
    if (!read) return std::unexpected(std::move(read.error()));
    facts = *read;
    return {};
}

platform::Result<void> Placing::SetPlain(const std::string& path) {
    return session_.files().SetAttributes(path, isFile_ ? kPlainFile : kPlainFolder);
}

platform::Result<void> Placing::CanBeRead() {
    if ((sourceFacts_.attributes & platform::kSpecial) != 0) {
        return platform::Failure(platform::kPathFileAccess,
                                 source_ + " is a special file, which can't be copied.");
    }
    if (!isFile_ || sourceFacts_.IsLink()) return {};
    auto read = session_.files().ReadBytes(actual_, 0, 1);
    if (!read) return std::unexpected(std::move(read.error()));
    return {};
}

platform::Result<bool> Placing::DestinationStands() {
    auto facts = session_.files().Facts(destination_);
    if (facts) return true;
    const int number = facts.error().number;
    const bool isMissing = number == platform::kFileNotFound || number == platform::kPathNotFound;
    if (isMissing) return false;
    return std::unexpected(std::move(facts.error()));
}

platform::Result<void> Placing::Copy() {
    auto& files = session_.files();
    if (isFile_) return files.CopyFile(actual_, destination_, false, ObserverOf(session_));
    if (auto may = MakeWay(); !may) return may;
    isOwn_ = true;
    return files.CopyFolder(actual_, destination_, false, ObserverOf(session_));
}

platform::Result<void> Placing::MakeWay() {
    const auto stands = DestinationStands();
    if (!stands) return std::unexpected(stands.error());
    if (!*stands || (isOwn_ && RecycleOne(session_, destination_))) return {};
    return platform::Failure(platform::kAlreadyExists,
                             destination_ + ": " +
                                 std::string(platform::ErrorText(platform::kAlreadyExists)) + ".");
}

platform::Result<void> Placing::Move() {
    auto& files = session_.files();
    isMoveTried_ = true;
    return isFile_ ? files.MoveFile(actual_, destination_, ObserverOf(session_))
                   : files.MoveFolder(actual_, destination_);
}

} // namespace tarvix::actions
