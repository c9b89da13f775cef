#include "actions/place/recycle.h"

#include "actions/place/action_run.h"
#include "actions/place/object.h"
#include "actions/place/plain_attributes.h"
#include "platform/file_system.h"
#include "platform/trash.h"
#include "platform/try.h"
#include "session/attempt.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/wordings.h"
#include "text/case.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <array>
#include <optional>
#include <span>

namespace tarvix::actions {

namespace {

constexpr std::size_t kMostErrors = 100;

using session::ObjectType;
using session::Session;

bool IsGone(int error) {
    return error == platform::kFileNotFound || error == platform::kPathNotFound;
}

// Whether the object itself is there. Names of paths that no search gave are found without regard
// to case, so that what answers to the name of one that is gone may be its neighbour.
bool IsThere(Session& session, const RecycleEntry& entry) {
    const std::string& path = entry.strActualPath;
    if (entry.sighting.location != platform::kAnyRoad) {
        const auto look = session.files().LookAtSeen({path, entry.sighting});
        return look || !IsGone(look.error().number);
    }
    const auto truePath = session.files().TruePath(path);
    if (truePath) return *truePath == path || !text::EqualNoCase(*truePath, path);
    return !IsGone(truePath.error().number);
}

// Clears what protects the object and deletes it for good, a folder only when it is empty.
platform::Result<void> DeleteForGood(Session& session, const RecycleEntry& entry, ObjectType kind) {
    auto& files = session.files();
    const bool isFile = kind == ObjectType::kFile;
    if (!IsThere(session, entry)) {
        return platform::Failure(platform::kFileNotFound,
                                 fmt::format("{} is not there.", session.Shown(entry.strPath)));
    }
    TX_TRY_ASSIGN(const platform::Look look, files.LookAtSeen(entry.Seen()));
    TX_TRY(files.SetAttributesOf(look, isFile ? kPlainFile : kPlainFolder));
    return isFile ? files.DeleteFileOf(look, true) : files.RemoveFolderOf(look);
}

// What became of one object that could not be recycled.
enum class Override { kStays, kDeleted, kChanged };

Override DeleteAnyway(Session& session, const RecycleEntry& entry, ObjectType kind,
                      std::string_view routine) {
    const session::ErrorContext context{.routine = routine,
                                        .moduleName = "Module1",
                                        .object = entry.strPath,
                                        .path = entry.strActualPath,
                                        .objectType = kind,
                                        .asksAlways = true};
    const auto deleted = session::Attempt(
        session, context, [&] { return DeleteForGood(session, entry, kind); },
        [](const platform::PlatformError& error) {
            return error.number == platform::kChangedSinceSearch
                       ? std::optional(session::kRecoveryLeave)
                       : std::nullopt;
        });
    if (deleted.ErrorNumber() == platform::kChangedSinceSearch) return Override::kChanged;
    if (!deleted) return Override::kStays;
    session::LogTimed(
        session, fmt::format(" Deleted {} since recycle failed.", session.Shown(entry.strPath)));
    return Override::kDeleted;
}

// A link goes as a file, whatever it leads to.
std::optional<ObjectType> KindOnDisk(Session& session, const RecycleEntry& entry) {
    const auto look =
        session.files().LookAtSeen({entry.strActualPath, entry.sighting, platform::Same::kName});
    if (look) {
        return look->facts.IsFolder() && !look->facts.IsLink() ? ObjectType::kFolder
                                                               : ObjectType::kFile;
    }
    session::LogTimed(session, fmt::format(" Was unable to determine the object type of: {}.",
                                           session.Shown(entry.strPath)));
    return {};
}

void AskOverride(Session& session, const RecycleEntry& entry, std::string_view why) {
    auto& form = session.forms.frmOverrideRecycleFail;
    form.Caption = std::string(session::Worded(session, session::Wording::kRecycleRefusedTitle));
    form.lblMain.Caption = session::Worded(session, session::Wording::kRecycleRefused,
                                           session.Shown(entry.strPath), why);
    form.Focus = &form.cmdNo;
    form.Answer = kOverrideNo;
    session.ShowModal(session::PromptId::kOverrideRecycleFailure);
    constexpr std::array<const char*, 5> kLines{
        " User selected do not override recycle failure to: ",
        " User selected override recycle failure to: ",
        " User selected do not override recycle failure to all at: ",
        " User selected override recycle failure to all at: ",
        " User selected cancel to all in override recycle failure form at: "};
    session::LogTimed(session,
                      fmt::format("{}{}", kLines[form.Answer], session.Shown(entry.strPath)));
}

// Asks whether an object that can't be recycled shall be deleted for good, and does as the answer
// says.
Override OverrideRecycleFailure(Session& session, const RecycleEntry& entry, std::string_view why,
                                bool blnNoPrompt, std::string_view routine) {
    const auto& answer = session.forms.frmOverrideRecycleFail.Answer;
    const auto kind = KindOnDisk(session, entry);
    if (!kind || answer == kOverrideNoToAll) return Override::kStays;
    if (answer != kOverrideYesToAll) {
        if (blnNoPrompt) return Override::kStays;
        AskOverride(session, entry, why);
    }
    const bool deletes = answer == kOverrideYes || answer == kOverrideYesToAll;
    return deletes ? DeleteAnyway(session, entry, *kind, routine) : Override::kStays;
}

// The queue while it is worked off: what stands before `first_` is settled.
class RecycleRun {
  public:
    RecycleRun(Session& session, const std::vector<RecycleEntry>& queue, bool blnNoPrompt,
               const RecycleObserver& observer, const RecycleSettled& settled)
        : session_(session), queue_(queue), noPrompt_(blnNoPrompt), observer_(observer),
          settled_(settled) {
        numbers_.resize(queue.size());
        objects_.reserve(queue.size());
        for (const RecycleEntry& entry : queue)
            objects_.push_back(entry.Seen());
    }

    RecycleOutcome Run() {
        while (first_ < objects_.size() && !outcome_.blnStopped) {
            const auto sent = Send();
            const std::size_t reached = sent ? objects_.size() : tried_;
            outcome_.gone += reached - first_;
            for (; first_ < reached; ++first_)
                Tell({.place = first_, .number = numbers_[first_]});
            if (!sent && !outcome_.blnStopped) SettleFailed(sent.error());
        }
        return outcome_;
    }

  private:
    // Ends before an object that went with its folder, whose name may be a neighbour's too; one
    // that was seen is known from its neighbour.
    platform::Result<void> Send() {
        const std::size_t offset = tried_ = first_;
        const platform::TrashObserver told = [this, offset](std::size_t done) {
            tried_ = offset + done;
            outcome_.blnStopped = observer_ && !observer_(tried_);
            const RecycleEntry& entry = queue_[tried_];
            const bool isKnown = entry.sighting.location != platform::kAnyRoad;
            const bool goes = !outcome_.blnStopped && (isKnown || IsThere(session_, entry));
            numbers_[tried_] = session_.platform.trash.Taken();
            return goes;
        };
        return session_.platform.trash.RecycleSeen(std::span(objects_).subspan(first_), told);
    }

    void SettleFailed(const platform::PlatformError& error) {
        const RecycleEntry& entry = queue_[first_++];
        if (error.number == platform::kChangedSinceSearch) return NoteChanged(entry);
        if (!IsThere(session_, entry)) {
            ++outcome_.gone;
            return Tell({.place = first_ - 1, .end = RecycleEnd::kWasGone});
        }
        const bool isQueue = objects_.size() > 1;
        outcome_.blnPartial = outcome_.blnPartial || isQueue;
        const std::string why = session_.Shown(error);
        session::LogTimed(session_, fmt::format(" {}", why));
        const Override end = OverrideRecycleFailure(session_, entry, why, noPrompt_,
                                                    isQueue ? "OverrideRecycleFailureEntry"
                                                            : "OverrideRecycleFailure");
        outcome_.blnStopped =
            session_.forms.frmOverrideRecycleFail.Answer == kOverrideCancel && !noPrompt_;
        if (end == Override::kChanged) return NoteChanged(entry);
        const bool isDeleted = end == Override::kDeleted;
        outcome_.deleted += isDeleted ? 1 : 0;
        ++(isDeleted ? outcome_.gone : outcome_.failed);
        if (!isDeleted && outcome_.errors.size() < kMostErrors) outcome_.errors.push_back(why);
        Tell({.place = first_ - 1,
              .end = isDeleted ? RecycleEnd::kDeleted : RecycleEnd::kFailed,
              .error = &error});
    }

    void Tell(const SettledEntry& entry) {
        if (settled_) settled_(entry);
    }

    void NoteChanged(const RecycleEntry& entry) {
        outcome_.changed.push_back(first_ - 1);
        Tell({.place = first_ - 1, .end = RecycleEnd::kChanged});
        session::LogTimed(session_, fmt::format(" {}", ChangedText(session_, entry.strPath)));
    }

    Session& session_;
    const std::vector<RecycleEntry>& queue_;
    bool noPrompt_;
    const RecycleObserver& observer_;
    const RecycleSettled& settled_;
    std::vector<platform::SeenObject> objects_;
    std::vector<std::size_t> numbers_; // in the trash, by place
    std::size_t first_ = 0;
    std::size_t tried_ = 0; // the entry that the trash had in hand
    RecycleOutcome outcome_;
};

} // namespace

RecycleOutcome RecycleObjects(Session& session, const std::vector<RecycleEntry>& queue,
                              bool blnNoPrompt, const RecycleObserver& observer,
                              const RecycleSettled& settled) {
    return RecycleRun(session, queue, blnNoPrompt, observer, settled).Run();
}

bool RecycleOne(Session& session, std::string_view path) {
    std::string listed(path);
    std::string actual = session.files().TruePath(path).value_or(listed);
    return RecycleObjects(session, {{std::move(actual), std::move(listed)}}, true).gone == 1;
}

bool RecycleObject(Session& session, const Object& object, platform::Same same) {
    const RecycleEntry entry{std::string(object.actual), std::string(object.path), object.sighting,
                             same};
    return RecycleObjects(session, {entry}, true).gone == 1;
}

void AddRecycleEvents(session::EventTable& events) {
    constexpr std::array<const char*, 5> kButtons{"cmdNo", "cmdYes", "cmdNoToAll", "cmdYesToAll",
                                                  "cmdCancel"};
    for (std::uint8_t answer = 0; answer < kButtons.size(); ++answer) {
        const std::string event = fmt::format("{}_Click", kButtons[answer]);
        events.On(fmt::format("frmOverrideRecycleFail.{}", event),
                  [answer](Session& session, const session::EventArgs&) {
                      session.forms.frmOverrideRecycleFail.Answer = answer;
                      session.forms.frmOverrideRecycleFail.Hide();
                  });
        events.On(fmt::format("frmOverrideDialog.{}", event),
                  [answer](Session& session, const session::EventArgs&) {
                      session.forms.frmOverrideDialog.Answer = answer;
                      session.forms.frmOverrideDialog.Hide();
                  });
    }
}

} // namespace tarvix::actions
