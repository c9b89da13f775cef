#include "actions/place/placing.h"

#include "actions/place/no_short_path.h"
#include "actions/place/plain_attributes.h"
#include "actions/place/recycle.h"
#include "actions/place/system_hidden.h"
#include "platform/try.h"
#include "session/paths/ask_long_path.h"
#include "session/paths/short_path.h"
#include "session/prompt_id.h"
#include "session/tell.h"
#include "text/case.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>

namespace tarvix::actions {

namespace {

constexpr std::size_t kLongestNewPath = 254;

// The folder that the object was found in, with what lies between left out.
std::string_view SearchFolderOf(const Object& object) {
    const std::string_view path = object.path;
    const std::string_view relative = object.relative;
    const bool isBelow = !relative.empty() && path.size() > relative.size() &&
                         path.ends_with(relative) &&
                         path[path.size() - relative.size() - 1] == '\\';
    return isBelow ? path.substr(0, path.size() - relative.size() - 1) : path;
}

// The words of a verb: in the status line and, done, in the log.
struct Words {
    std::string_view doing;
    std::string_view as;
};
constexpr std::array<Words, 3> kWords{
    {{"Copying ", "  to  "}, {"Moving ", "  to  "}, {"Renaming ", "  as  "}}};

} // namespace

Outcome Placing::Run() {
    GoThroughSteps();
    return Result();
}

void Placing::GoThroughSteps() {
    if (verb_ == Verb::kCopy && text::EqualNoCase(object_.path, destination_)) return;
    if (!FinishDestination()) return;
    ShowStatus();
    FindReadOnlyDrives();
    if (overwrites_ && !MayOverwrite()) return;
    if (!ReadObjects() || !MakePlain() || !PutThere()) {
        RestoreDestination();
        return RestoreSource();
    }
    if (verb_ == Verb::kCopy) RestoreSource();
    SetCombined();
    LogPlaced();
}

Outcome Placing::Result() {
    Outcome outcome{.index = object_.index,
                    .isPlaced = isDone_,
                    .isDiskFull = isDiskFull_,
                    .isTaken = isTaken_,
                    .error = std::move(error_)};
    if (isDone_) outcome.strDestination = std::move(destination_);
    if (hasFailed_) {
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
    destination_ = CleanedDestination(destination_, verb_ == Verb::kRename);
    if (!session::ExceedsLimit(session_, destination_, kLongestNewPath)) return true;
    session::AskLongPath(session_, SearchFolderOf(object_), destination_, "CopyObject",
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
    const Words& words = kWords[static_cast<std::size_t>(verb_)];
    session_.frmDialog.lblStatus.Caption = text::Concat(
        {words.doing, session_.Shown(object_.path), words.as, session_.Shown(destination_)});
    session_.Yield();
}

void Placing::FindReadOnlyDrives() {
    const auto isOn = [this](std::string_view path) {
        return std::ranges::any_of(run_.strCDDrives, [path](const std::string& drive) {
            return text::EqualNoCase(text::Left(path, 2), drive);
        });
    };
    blnSourceOnCD_ = isOn(object_.actual);
    blnDestOnCD_ = isOn(destination_);
}

bool Placing::MayOverwrite() {
    if (run_.bytOverrideAnswer == kOverrideCancel) {
        session::LogTimed(session_, " User canceled delete of rest of files");
        return false;
    }
    if (!CheckSystemHidden(session_, run_, object_, true)) return true;
    isProtected_ = true;
    session::LogTimed(session_,
                      fmt::format(" User did not override in override form, of {} to overwrite {}",
                                  session_.Shown(object_.path), session_.Shown(destination_)));
    return false;
}

bool Placing::ReadObjects() {
    if (!look_ && !Do([this] { return LookAtSource(); })) return false;
    sourceFacts_ = look_->facts;
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
    sourceIsPlain_ = Do([this] { return SetPlain(object_.actual); });
    return sourceIsPlain_;
}

bool Placing::PutThere() {
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
        session::LogTimed(session_,
                          fmt::format(" Deleted {} to recycle bin before it was overwritten.",
                                      session_.Shown(destination_)));
        return true;
    }
    session::LogTimed(session_,
                      fmt::format(" Was unable to delete {} to recycle bin and overwrite "
                                  "with {} overwrite was skipped.",
                                  session_.Shown(destination_), session_.Shown(object_.path)));
    session::TellUnlessAuto(
        session_, session::PromptId::kOverwriteNotRecycled,
        fmt::format("Was unable to delete: \r\n\r\n{}\r\n\r\n to recycle bin and overwrite with: "
                    "\r\n\r\n{}\r\n\r\n overwrite was skipped.",
                    session_.Shown(destination_), session_.Shown(object_.path)));
    return false;
}

void Placing::RecycleSource() {
    RestoreSource();
    if (RecycleOne(session_, object_.actual)) return;
    isCopyOnly_ = true;
    session::LogTimed(session_, fmt::format(" Was unable to delete {} to recycle bin ({} already "
                                            "copied).",
                                            session_.Shown(object_.path),
                                            object_.isFile ? "file" : "folder"));
}

void Placing::RestoreSource() {
    if (!sourceIsPlain_) return;
    sourceIsPlain_ = false;
    (void)session_.files().SetAttributes(object_.actual, sourceAttributes_);
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
            TX_TRY(Read(destination_, placed));
            if ((placed.attributes & kCarried) == combined) return {};
            return session_.files().SetAttributes(destination_, combined);
        });
        if (!set) return;
    }
    if (!overwrites_) return;
    session::LogTimed(session_,
                      fmt::format(" Attributes of {} were combined since it overwrote another "
                                  "object.",
                                  session_.Shown(destination_)));
}

void Placing::LogPlaced() {
    isDone_ = true;
    if (hasFailed_) return;
    const std::string source = session_.Shown(object_.path);
    const std::string place = session_.Shown(destination_);
    const std::string_view mode = overwrites_ ? "overwrite" : "";
    std::string line;
    switch (verb_) {
    case Verb::kCopy:
        line = text::Concat({" Copy ", source, " -- to -- ", place, " ", mode});
        break;
    case Verb::kMove:
        line = text::Concat({" Move ", source, " -- to -- ", place, mode, "."});
        break;
    case Verb::kRename:
        line = text::Concat({" Renamed ", source, " -- as -- ", place, mode});
        break;
    }
    session::LogTimed(session_, line);
}

platform::Result<void> Placing::Read(std::string_view path, ObjectFacts& facts) {
    TX_TRY_ASSIGN(facts, object_.isFile ? platform::GetFile(session_.files(), path)
                                        : platform::GetFolder(session_.files(), path));
    return {};
}

platform::Result<void> Placing::LookAtSource() {
    TX_TRY_ASSIGN(look_, object_.isFile ? platform::LookAtFile(session_.files(), object_.actual)
                                        : platform::LookAtFolder(session_.files(), object_.actual));
    return {};
}

platform::Look Placing::Source() const {
    if (look_) return *look_;
    return {.path = std::string(object_.actual), .facts = {}, .known = nullptr};
}

platform::FreePlace Placing::NewPlace() const {
    if (place_ && place_->path == destination_) return *place_;
    return {destination_, nullptr};
}

platform::Result<void> Placing::SetPlain(std::string_view path) {
    return session_.files().SetAttributes(path, object_.isFile ? kPlainFile : kPlainFolder);
}

platform::Result<void> Placing::CanBeRead() {
    if ((sourceFacts_.attributes & platform::kSpecial) != 0) {
        return platform::Failure(platform::kPathFileAccess,
                                 fmt::format("{} is a special file, which can't be copied.",
                                             session_.Shown(object_.path)));
    }
    if (!object_.isFile || sourceFacts_.IsLink()) return {};
    TX_TRY(session_.files().ReadBytes(object_.actual, 0, 1));
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
    if (object_.isFile) return files.CopyFileTo(Source(), NewPlace(), run_.observer);
    TX_TRY(MakeWay());
    isOwn_ = true;
    return files.CopyFolder(object_.actual, destination_, false, run_.observer);
}

platform::Result<void> Placing::MakeWay() {
    TX_TRY_ASSIGN(const bool stands, DestinationStands());
    if (!stands || (isOwn_ && RecycleOne(session_, destination_))) return {};
    return platform::Failure(platform::kAlreadyExists,
                             fmt::format("{}: {}.", session_.Shown(destination_),
                                         platform::ErrorText(platform::kAlreadyExists)));
}

platform::Result<void> Placing::Move() {
    auto& files = session_.files();
    isMoveTried_ = true;
    return object_.isFile ? files.MoveFileTo(Source(), NewPlace(), run_.observer)
                          : files.MoveFolderTo(Source(), NewPlace());
}

} // namespace tarvix::actions
