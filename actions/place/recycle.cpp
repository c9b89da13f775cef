#include "actions/place/recycle.h"

#include "actions/place/action_run.h"
#include "actions/place/plain_attributes.h"
#include "platform/file_system.h"
#include "platform/trash.h"
#include "platform/try.h"
#include "session/attempt.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/case.h"
#include "text/paths.h"

#include <array>
#include <optional>
#include <span>

namespace tarvix::actions {

namespace {

using session::ObjectType;
using session::Session;

// Whether the object itself is there. Names are found without regard to case, so that what answers
// to the name of an object that is gone may be its neighbour.
bool IsThere(Session& session, const std::string& path) {
    const auto truePath = session.files().TruePath(path);
    if (truePath) return *truePath == path || !text::EqualNoCase(*truePath, path);
    const int error = truePath.error().number;
    return error != platform::kFileNotFound && error != platform::kPathNotFound;
}

// Clears what protects the object and deletes it for good, a folder only when it is empty.
platform::Result<void> DeleteForGood(Session& session, const std::string& path, ObjectType kind) {
    auto& files = session.files();
    const bool isFile = kind == ObjectType::kFile;
    if (!IsThere(session, path)) {
        return platform::Failure(platform::kFileNotFound, path + " is not there.");
    }
    TX_TRY(files.SetAttributes(path, isFile ? kPlainFile : kPlainFolder));
    return isFile ? files.DeleteFile(path, true) : files.RemoveFolder(path);
}

bool DeleteAnyway(Session& session, const RecycleEntry& entry, ObjectType kind,
                  std::string_view routine) {
    const session::ErrorContext context{.routine = routine,
                                        .moduleName = "Module1",
                                        .object = entry.strPath,
                                        .path = entry.strActualPath,
                                        .objectType = kind,
                                        .asksAlways = true};
    const auto deleted = session::Attempt(
        session, context, [&] { return DeleteForGood(session, entry.strActualPath, kind); });
    if (!deleted) return false;
    session::LogTimed(session,
                      " Deleted " + session.Shown(entry.strPath) + " since recycle failed.");
    return true;
}

// A link goes as a file, whatever it leads to.
std::optional<ObjectType> KindOnDisk(Session& session, const RecycleEntry& entry) {
    const auto facts = session.files().Facts(entry.strActualPath);
    if (facts)
        return facts->IsFolder() && !facts->IsLink() ? ObjectType::kFolder : ObjectType::kFile;
    session::LogTimed(session, " Was unable to determine the object type of: " +
                                   session.Shown(entry.strPath) + ".");
    return {};
}

void AskOverride(Session& session, const RecycleEntry& entry) {
    auto& form = session.forms.frmOverrideRecycleFail;
    form.lblMain.Caption = session.Shown(entry.strPath) +
                           "\r\n\r\n failed to be recycled. \r\nWould you like to "
                           "delete anyway, without going to the recycle bin?";
    form.Focus = &form.cmdNo;
    form.Answer = kOverrideNo;
    session.ShowModal(session::PromptId::kOverrideRecycleFailure);
    constexpr std::array<const char*, 5> kLines{
        " User selected do not override recycle failure to: ",
        " User selected override recycle failure to: ",
        " User selected do not override recycle failure to all at: ",
        " User selected override recycle failure to all at: ",
        " User selected cancel to all in override recycle failure form at: "};
    session::LogTimed(session, kLines[form.Answer] + session.Shown(entry.strPath));
}

// Asks whether an object that can't be recycled shall be deleted for good, and does as the answer
// says; gives whether the object is gone.
bool OverrideRecycleFailure(Session& session, const RecycleEntry& entry, bool blnNoPrompt,
                            std::string_view routine) {
    const auto& answer = session.forms.frmOverrideRecycleFail.Answer;
    const auto kind = KindOnDisk(session, entry);
    if (!kind || answer == kOverrideNoToAll) return false;
    if (answer != kOverrideYesToAll) {
        if (blnNoPrompt) return false;
        AskOverride(session, entry);
    }
    const bool deletes = answer == kOverrideYes || answer == kOverrideYesToAll;
    return deletes && DeleteAnyway(session, entry, *kind, routine);
}

// The queue while it is worked off: what stands before `first_` is settled.
class RecycleRun {
  public:
    RecycleRun(Session& session, const std::vector<RecycleEntry>& queue, bool blnNoPrompt,
               const RecycleObserver& observer)
        : session_(session), queue_(queue), noPrompt_(blnNoPrompt), observer_(observer) {
        paths_.reserve(queue.size());
        for (const RecycleEntry& entry : queue) {
            paths_.push_back(entry.strActualPath);
        }
    }

    RecycleOutcome Run() {
        while (first_ < paths_.size() && !outcome_.blnStopped) {
            const bool isSent = Send();
            outcome_.gone += (isSent ? paths_.size() : tried_) - first_;
            first_ = isSent ? paths_.size() : tried_;
            if (!isSent && !outcome_.blnStopped) SettleFailed();
        }
        return outcome_;
    }

  private:
    // Ends before an object that went with its folder, whose name may be a neighbour's too.
    bool Send() {
        const std::size_t offset = tried_ = first_;
        const platform::TrashObserver told = [this, offset](std::size_t done) {
            tried_ = offset + done;
            outcome_.blnStopped = observer_ && !observer_(tried_);
            return !outcome_.blnStopped && IsThere(session_, paths_[tried_]);
        };
        return session_.platform.trash.Recycle(std::span(paths_).subspan(first_), told).has_value();
    }

    void SettleFailed() {
        const RecycleEntry& entry = queue_[first_++];
        if (!IsThere(session_, entry.strActualPath)) {
            ++outcome_.gone;
            return;
        }
        const bool isQueue = paths_.size() > 1;
        outcome_.blnPartial = outcome_.blnPartial || isQueue;
        const bool isDeleted = OverrideRecycleFailure(session_, entry, noPrompt_,
                                                      isQueue ? "OverrideRecycleFailureEntry"
                                                              : "OverrideRecycleFailure");
        outcome_.deleted += isDeleted ? 1 : 0;
        ++(isDeleted ? outcome_.gone : outcome_.failed);
        outcome_.blnStopped =
            session_.forms.frmOverrideRecycleFail.Answer == kOverrideCancel && !noPrompt_;
    }

    Session& session_;
    const std::vector<RecycleEntry>& queue_;
    bool noPrompt_;
    const RecycleObserver& observer_;
    std::vector<std::string> paths_;
    std::size_t first_ = 0;
    std::size_t tried_ = 0; // the entry that the trash had in hand
    RecycleOutcome outcome_;
};

} // namespace

RecycleOutcome RecycleObjects(Session& session, const std::vector<RecycleEntry>& queue,
                              bool blnNoPrompt, const RecycleObserver& observer) {
    return RecycleRun(session, queue, blnNoPrompt, observer).Run();
}

bool RecycleOne(Session& session, std::string_view path) {
    std::string listed(path);
    std::string actual = session.files().TruePath(path).value_or(listed);
    return RecycleObjects(session, {{std::move(actual), std::move(listed)}}, true).gone == 1;
}

void AddRecycleEvents(session::EventTable& events) {
    constexpr std::array<const char*, 5> kButtons{"cmdNo", "cmdYes", "cmdNoToAll", "cmdYesToAll",
                                                  "cmdCancel"};
    for (std::uint8_t answer = 0; answer < kButtons.size(); ++answer) {
        const std::string event = std::string(kButtons[answer]) + "_Click";
        events.On("frmOverrideRecycleFail." + event,
                  [answer](Session& session, const session::EventArgs&) {
                      session.forms.frmOverrideRecycleFail.Answer = answer;
                      session.forms.frmOverrideRecycleFail.Hide();
                  });
        events.On("frmOverrideDialog." + event,
                  [answer](Session& session, const session::EventArgs&) {
                      session.forms.frmOverrideDialog.Answer = answer;
                      session.forms.frmOverrideDialog.Hide();
                  });
    }
}

} // namespace tarvix::actions
