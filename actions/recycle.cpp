#include "actions/recycle.h"

#include "platform/dir.h"
#include "platform/file_system.h"
#include "platform/trash.h"
#include "session/attempt.h"
#include "session/session.h"

#include <algorithm>
#include <array>
#include <span>

namespace tarvix::actions {

namespace {

using session::ObjectType;
using session::Session;

constexpr std::uint32_t kPlainFolder = 16;
constexpr std::uint32_t kPlainFile = 0;

// Clears what protects the object and deletes it for good, a folder only when it is empty.
platform::Result<void> DeleteForGood(Session& session, const std::string& path, ObjectType kind) {
    auto& files = session.files();
    const bool isFile = kind == ObjectType::kFile;
    if (auto plain = files.SetAttributes(path, isFile ? kPlainFile : kPlainFolder); !plain) {
        return plain;
    }
    return isFile ? files.DeleteFile(path, true) : files.RemoveFolder(path);
}

bool DeleteAnyway(Session& session, const RecycleEntry& entry, ObjectType kind,
                  std::string_view routine) {
    const session::ErrorContext context{.routine = routine,
                                        .moduleName = "Module1",
                                        .object = entry.strPath,
                                        .path = entry.strActualPath,
                                        .objectType = kind};
    const auto deleted = session::Attempt(
        session, context, [&] { return DeleteForGood(session, entry.strActualPath, kind); });
    if (!deleted) return false;
    session::LogTimed(session, " Deleted " + entry.strPath + " since recycle failed.");
    return true;
}

ObjectType KindOnDisk(Session& session, const RecycleEntry& entry) {
    const auto facts = session.files().Facts(entry.strActualPath);
    if (!facts) {
        session::LogTimed(session,
                          " Was unable to determine the object type of: " + entry.strPath + ".");
        return ObjectType::kNoType;
    }
    return facts->IsFolder() && !facts->IsLink() ? ObjectType::kFolder : ObjectType::kFile;
}

void AskOverride(Session& session, const RecycleEntry& entry) {
    auto& form = session.forms.frmOverrideRecycleFail;
    auto& answer = session.state.action.bytRecycleAnswer;
    form.lblMain.Caption = entry.strPath + "\r\n\r\n failed to be recycled. \r\nWould you like to "
                                           "delete anyway, without going to the recycle bin?";
    form.Focus = &form.cmdNo;
    answer = session::kOverrideNo;
    session.ShowModal(form);
    constexpr std::array<const char*, 5> kLines{
        " User selected do not override recycle failure to: ",
        " User selected override recycle failure to: ",
        " User selected do not override recycle failure to all at: ",
        " User selected override recycle failure to all at: ",
        " User selected cancel to all in override recycle failure form at: "};
    session::LogTimed(session, kLines[answer] + entry.strPath);
}

// The queue while it is worked off: what stands before `first` is settled.
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
            const auto sent = Send();
            if (sent) {
                outcome_.gone += paths_.size() - first_;
                break;
            }
            const std::size_t before = first_;
            FirstExistingEntry();
            outcome_.gone += first_ - before;
            if (first_ == paths_.size()) break;
            if (sent.error().number == platform::kInterrupted) {
                outcome_.blnStopped = true;
            } else if (!IsMissing(sent.error())) {
                SettleFirst();
            }
        }
        return outcome_;
    }

  private:
    // Something that went with its folder; the next entry was not tried yet.
    static bool IsMissing(const platform::PlatformError& error) {
        return error.number == platform::kFileNotFound || error.number == platform::kPathNotFound;
    }

    platform::Result<void> Send() {
        const std::size_t offset = first_;
        platform::TrashObserver told;
        if (observer_) told = [this, offset](std::size_t done) { return observer_(offset + done); };
        return session_.platform.trash.Recycle(std::span(paths_).subspan(first_), told);
    }

    void FirstExistingEntry() {
        while (first_ < paths_.size() &&
               platform::DirName(session_.files(), paths_[first_], platform::kDirAll).empty()) {
            ++first_;
        }
    }

    void SettleFirst() {
        const bool isQueue = paths_.size() > 1;
        outcome_.blnPartial = outcome_.blnPartial || isQueue;
        const RecycleEntry& entry = queue_[first_++];
        const bool isGone =
            OverrideRecycleFailure(session_, entry, KindOnDisk(session_, entry), noPrompt_);
        ++(isGone ? outcome_.gone : outcome_.failed);
        outcome_.blnStopped =
            session_.state.action.bytRecycleAnswer == session::kOverrideCancel && !noPrompt_;
    }

    Session& session_;
    const std::vector<RecycleEntry>& queue_;
    bool noPrompt_;
    const RecycleObserver& observer_;
    std::vector<std::string> paths_;
    std::size_t first_ = 0;
    RecycleOutcome outcome_;
};

} // namespace

RecycleOutcome RecycleObjects(Session& session, const std::vector<RecycleEntry>& queue,
                              bool blnNoPrompt, const RecycleObserver& observer) {
    return RecycleRun(session, queue, blnNoPrompt, observer).Run();
}

bool RecycleOne(Session& session, const std::string& path) {
    return RecycleObjects(session, {{path, path}}, true).gone == 1;
}

bool OverrideRecycleFailure(Session& session, const RecycleEntry& entry, ObjectType kind,
                            bool blnNoPrompt) {
    const auto& answer = session.state.action.bytRecycleAnswer;
    if (kind == ObjectType::kNoType || answer == session::kOverrideNoToAll) return false;
    if (answer != session::kOverrideYesToAll) {
        if (blnNoPrompt) return false;
        AskOverride(session, entry);
    }
    const bool deletes = answer == session::kOverrideYes || answer == session::kOverrideYesToAll;
    return deletes && DeleteAnyway(session, entry, kind, "OverrideRecycleFailure");
}

void AddRecycleEvents(session::EventTable& events) {
    constexpr std::array<const char*, 5> kButtons{"cmdNo", "cmdYes", "cmdNoToAll", "cmdYesToAll",
                                                  "cmdCancel"};
    for (std::uint8_t answer = 0; answer < kButtons.size(); ++answer) {
        const std::string event = std::string(kButtons[answer]) + "_Click";
        events.On("frmOverrideRecycleFail." + event,
                  [answer](Session& session, const session::EventArgs&) {
                      session.state.action.bytRecycleAnswer = answer;
                      session.forms.frmOverrideRecycleFail.Hide();
                  });
        events.On("frmOverrideDialog." + event,
                  [answer](Session& session, const session::EventArgs&) {
                      session.state.action.bytOverrideAnswer = answer;
                      session.forms.frmOverrideDialog.Hide();
                  });
    }
}

} // namespace tarvix::actions
