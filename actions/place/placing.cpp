#include "actions/place/placing.h"

#include "actions/place/no_short_path.h"
#include "actions/place/placing_words.h"
#include "actions/place/plain_attributes.h"
#include "actions/place/recycle.h"
#include "actions/place/system_hidden.h"
#include "platform/trash.h"
#include "platform/try.h"
#include "session/paths/ask_long_path.h"
#include "session/paths/missing_folders.h"
#include "session/paths/short_path.h"
#include "session/prompt_id.h"
#include "session/tell.h"
#include "session/wordings.h"
#include "text/case.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>

namespace tarvix::actions {

namespace {

// The folder that the object was found in, with what lies between left out.
std::string_view SearchFolderOf(const Object& object) {
    const std::string_view path = object.path;
    const std::string_view relative = object.relative;
    const bool isBelow = !relative.empty() && path.size() > relative.size() &&
                         path.ends_with(relative) &&
                         path[path.size() - relative.size() - 1] == '\\';
    return isBelow ? path.substr(0, path.size() - relative.size() - 1) : path;
}

} // namespace

Outcome Placing::Run() {
    GoThroughSteps();
    TakeBackFolders();
    return Result();
}

void Placing::GoThroughSteps() {
    if (verb_ == Verb::kCopy && text::EqualNoCase(object_.path, place_.path)) return;
    if (!FinishDestination()) return;
    ShowStatus();
    FindReadOnlyDrives();
    if (overwrites_ && !MayOverwrite()) return;
    if (!ReadObjects() || !PutThere()) return;
    SetCombined();
    LogPlaced();
}

void Placing::TakeBackFolders() {
    if (!isPlaced_) session::RemoveMadeFolders(session_, madeFolders_);
}

Outcome Placing::Result() {
    Outcome outcome{.index = object_.index,
                    .isPlaced = isDone_,
                    .isTaken = isTaken_,
                    .errorNumber = errorNumber_,
                    .error = std::move(error_)};
    if (isDone_) outcome.strDestination = std::move(place_.path);
    if (isStopped_ && !isDone_) {
        outcome.kind = OutcomeKind::kStopped;
    } else if (isChanged_) {
        outcome.kind = OutcomeKind::kChanged;
    } else if (hasFailed_) {
        outcome.kind = OutcomeKind::kFailed;
    } else if (isDone_) {
        constexpr std::array kKinds{OutcomeKind::kCopied, OutcomeKind::kMoved,
                                    OutcomeKind::kRenamed};
        outcome.kind = isCopyOnly_ ? OutcomeKind::kCopied : kKinds[static_cast<std::size_t>(verb_)];
    } else if (isProtected_) {
        outcome.kind = OutcomeKind::kProtected;
    }
    return outcome;
}

bool Placing::FinishDestination() {
    if (const bool isRename = verb_ == Verb::kRename; !IsCleanDestination(place_.path, isRename)) {
        place_ = {CleanedDestination(place_.path, isRename), nullptr};
    }
    if (!session::ExceedsLimit(session_, place_.path, session::kLongestNewPath)) return true;
    session::AskLongPath(session_, SearchFolderOf(object_), place_.path, "CopyObject", "frmDialog");
    if (!session::ContinuesLongPath(session_)) return false;
    auto shortened = session::GetShortPathNameReturnCodes(session_, place_.path, false,
                                                          session::kLongestNewPath);
    place_ = {std::move(shortened.path), nullptr};
    madeFolders_ = std::move(shortened.made);
    if (shortened.status == 3) return true;
    RefuseWithoutShortPath(session_, place_.path, session::kLongestNewPath);
    return false;
}

void Placing::ShowStatus() {
    shownSource_ = run_.shownSources.Of(object_.path);
    shownPlace_ = run_.shownPlaces.Of(place_.path);
    run_.status.clear();
    AppendPlacing(run_.status, verb_, shownSource_, shownPlace_);
    session_.frmDialog.lblStatus.Caption = run_.status;
    session_.Yield();
}

void Placing::FindReadOnlyDrives() {
    const auto isOn = [this](std::string_view path) {
        return std::ranges::any_of(run_.strCDDrives, [path](const std::string& drive) {
            return text::EqualNoCase(text::Left(path, 2), drive);
        });
    };
    blnDestOnCD_ = isOn(place_.path);
}

bool Placing::MayOverwrite() {
    if (run_.bytOverrideAnswer == kOverrideCancel) {
        session::LogTimed(session_, " User canceled delete of rest of files");
        return false;
    }
    const Protection found = CheckSystemHidden(session_, run_, object_, true);
    if (found.IsChanged()) NoteChanged();
    if (!found.isProtected || isChanged_) return !found.isProtected;
    isProtected_ = true;
    session::LogTimed(session_,
                      fmt::format(" User did not override in override form, of {} to overwrite {}",
                                  session_.Shown(object_.path), session_.Shown(place_.path)));
    return false;
}

bool Placing::ReadObjects() {
    if (!look_ && !Do([this] { return LookAtSource(); })) return false;
    sourceFacts_ = look_->facts;
    sourceAttributes_ = sourceFacts_.attributes & kCarried;
    if (!overwrites_) return true;
    if (!Do([this] { return Read(place_.path, destinationFacts_); })) return false;
    destinationAttributes_ = destinationFacts_.attributes & kCarried;
    return true;
}

bool Placing::PutThere() {
    if (Replaces()) {
        if (!ReplaceWhatStands()) return false;
    } else if (!Do([this] { return verb_ == Verb::kCopy ? Copy() : Move(); })) {
        return false;
    }
    isPlaced_ = true;
    if (verb_ != Verb::kCopy && Replaces()) RecycleSource();
    return true;
}

bool Placing::ReplaceWhatStands() {
    return Do([this] { return Prepare(); }) && MakeWay() && NameCopy();
}

bool Placing::MakeWay() {
    const platform::Trash& trash = session_.platform.trash;
    const std::size_t before = trash.Taken();
    isRecycled_ = makeWay_ ? makeWay_() : RecycleDestination();
    if (isRecycled_ && trash.Taken() > before) trashed_ = trash.Taken() - 1;
    return isRecycled_;
}

bool Placing::NameCopy() {
    // Behind the recycling there is no other road.
    forceTried_ = pathTried_ = true;
    isPlaced_ = Do([this] { return copy_->Name(); });
    if (!isPlaced_) UndoRecycling();
    return isPlaced_;
}

void Placing::UndoRecycling() {
    const bool isBack = PutBack();
    const std::string_view bin = session::Worded(session_, session::Wording::kBin);
    const std::string told =
        isBack ? fmt::format("{} was put back from the {}.", session_.Shown(place_.path), bin)
               : fmt::format("What stood at {} could not be put back: look for it in the {}.",
                             session_.Shown(place_.path), bin);
    session::LogTimed(session_, fmt::format(" {}", told));
    if (isBack) return;
    error_ = fmt::format("{}{}{}", error_, error_.empty() ? "" : " ", told);
    session::TellUnlessAuto(session_, session::PromptId::kOverwriteNotUndone, told);
}

bool Placing::PutBack() {
    if (isPlaced_ || !std::exchange(isRecycled_, false)) return false;
    return trashed_ && session_.platform.trash.PutBack(*trashed_).has_value();
}

bool Placing::RecycleDestination() {
    if (RecycleOne(session_, place_.path)) {
        session::LogTimed(session_,
                          fmt::format(" Deleted {} to recycle bin before it was overwritten.",
                                      session_.Shown(place_.path)));
        return true;
    }
    session::LogTimed(session_,
                      fmt::format(" Was unable to delete {} to recycle bin and overwrite "
                                  "with {} overwrite was skipped.",
                                  session_.Shown(place_.path), session_.Shown(object_.path)));
    session::TellUnlessAuto(
        session_, session::PromptId::kOverwriteNotRecycled,
        fmt::format("Was unable to delete: \r\n\r\n{}\r\n\r\n to {} and overwrite with: "
                    "\r\n\r\n{}\r\n\r\n overwrite was skipped.",
                    session_.Shown(place_.path), session::Worded(session_, session::Wording::kBin),
                    session_.Shown(object_.path)));
    return false;
}

void Placing::RecycleSource() {
    if (RecycleObject(session_, object_, run_.same)) return;
    isCopyOnly_ = true;
    session::LogTimed(session_, fmt::format(" Was unable to delete {} to recycle bin ({} already "
                                            "copied).",
                                            session_.Shown(object_.path),
                                            object_.isFile ? "file" : "folder"));
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
            TX_TRY(Read(place_.path, placed));
            if ((placed.attributes & kCarried) == combined) return {};
            return session_.files().SetAttributes(place_.path, combined);
        });
        if (!set) return;
    }
    if (!overwrites_) return;
    session::LogTimed(session_,
                      fmt::format(" Attributes of {} were combined since it overwrote another "
                                  "object.",
                                  session_.Shown(place_.path)));
}

void Placing::LogPlaced() {
    isDone_ = true;
    if (hasFailed_) return;
    session::LogTimed(session_,
                      PlacedLine(verb_, shownSource_, shownPlace_, overwrites_ ? "overwrite" : ""));
}

platform::Result<void> Placing::Read(std::string_view path, ObjectFacts& facts) {
    TX_TRY_ASSIGN(facts, object_.isFile ? platform::GetFile(session_.files(), path)
                                        : platform::GetFolder(session_.files(), path));
    return {};
}

platform::Result<void> Placing::LookAtSource() {
    TX_TRY_ASSIGN(look_, LookAt(session_, run_, object_));
    return {};
}

const platform::Look& Placing::Source() {
    if (look_) return *look_;
    unseen_ = {.path = std::string(object_.actual),
               .facts = {.attributes = object_.sighting.attributes,
                         .size = object_.sighting.size,
                         .identity = object_.sighting.identity},
               .known = nullptr,
               .location = object_.sighting.location};
    return unseen_;
}

platform::Result<void> Placing::Copy() {
    auto& files = session_.files();
    isTried_ = true;
    if (object_.isFile) return files.CopyFileTo(Source(), place_, run_.observer);
    TX_TRY_ASSIGN(const auto copy, files.PrepareFolderOf(Source(), place_.path, run_.observer));
    return platform::NameWhole(*copy);
}

// What stands there is not given up for a copy that isn't whole.
platform::Result<void> Placing::Prepare() {
    auto& files = session_.files();
    isTried_ = true;
    copy_.reset();
    TX_TRY_ASSIGN(auto copy, object_.isFile
                                 ? files.PrepareFileOf(Source(), place_.path, run_.observer)
                                 : files.PrepareFolderOf(Source(), place_.path, run_.observer));
    if (std::string missing = copy->Missing(); !missing.empty()) {
        return platform::Failure(platform::kPathFileAccess, std::move(missing));
    }
    copy_ = std::move(copy);
    return {};
}

platform::Result<void> Placing::Move() {
    auto& files = session_.files();
    isTried_ = true;
    return object_.isFile ? files.MoveFileTo(Source(), place_, run_.observer)
                          : files.MoveFolderTo(Source(), place_);
}

} // namespace tarvix::actions
