#include "actions/request/delete_request.h"

#include "actions/place/action_run.h"
#include "actions/place/object.h"
#include "actions/place/recycle.h"
#include "actions/place/system_hidden.h"
#include "platform/clock.h"
#include "results/selection.h"
#include "session/paths/recycle_folders.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/format.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::actions {

namespace {

using session::PromptId;
using session::Session;

constexpr std::string_view kReallySure =
    "ARE YOU REALLY SURE???\r\n\r\nDeleting at least one folder and many files with include "
    "subfolders selected, may have unexpected results!\r\n\r\nFiles with HIDDEN or SYSTEM "
    "Attributes may get DELETED with out single file warnings!\r\n\r\nAlso when deleting files "
    "across a network or a usb drive, they will NOT be placed in the recycle bin'\r\n\r\n";

constexpr std::string_view kConfirm =
    "Are you sure you want delete all selected objects?\r\n\r\n"
    "This program will delete read-only objects\r\n\r\n"
    "This program will not allow deletion of system or hidden (files/folders).\r\n"
    "Unless you select to override at the prompt.\r\n\r\n"
    "BUT if you select to delete a folder that contains system or hidden files.\r\n"
    "They will be deleted unless the selected folder has the attribute\r\n"
    "system or hidden set. Again unless you override.\r\n\r\n"
    "Also when deleting objects across a network or a usb drive, they will NOT be placed in the "
    "recycle bin";

bool NeedsWarning(Session& session) {
    const auto& form = session.frmSearch;
    if (form.chkIncludeSubFolders.Value != 1) return false;
    const auto& isFile = session.selection->blnSelIsFile;
    const auto folders = std::ranges::count(isFile, false);
    const auto files = std::ranges::count(isFile, true);
    return (!form.optFilesVsDirs[4].Value && folders > 1) || (files >= 1 && folders == 1);
}

bool Confirm(Session& session) {
    const bool isWarned = NeedsWarning(session);
    const auto id = isWarned ? PromptId::kConfirmDeleteWarned : PromptId::kConfirmDelete;
    return session.MsgBox(id, text::Concat({isWarned ? kReallySure : "", kConfirm})) ==
           session::kYes;
}

// A deletion asks in automatic mode, too.
void TellThatItAsks(Session& session) {
    if (!session.state.options.blnAutoMode || session.state.blnRepeatDeleteEmpty) return;
    session.MsgBox(PromptId::kAutomaticModeOff, "Turning off automatic mode during delete.");
}

// While it lives the stop button shows and only it acts.
class StopButton {
  public:
    explicit StopButton(Session& session) : session_(session) {
        session.state.blnRecycling = true;
        session.state.blnStopAction = false;
        session.frmSearch.cmdStop.Visible = true;
    }
    ~StopButton() {
        session_.state.blnRecycling = false;
        session_.frmSearch.cmdStop.Visible = false;
        session_.forms.frmProgress.Hide();
    }
    StopButton(const StopButton&) = delete;
    StopButton& operator=(const StopButton&) = delete;

  private:
    Session& session_;
};

void QueueOne(Session& session, ActionRun& run, std::size_t index,
              std::vector<RecycleEntry>& queue) {
    const Object object = ObjectAt(*session.selection, index);
    run.leftParts.RemoveAround(session, object.actual);
    auto& skipped = session.state.lastAction.skipped;
    if (CheckSystemHidden(session, run, object, false)) {
        session::LogTimed(session,
                          text::Concat({" User skipped delete of ", session.Shown(object.path)}));
        ++skipped;
    } else if (session::IsRecycleBin(object.path)) {
        session::LogTimed(session, fmt::format(" Skipped delete of {}. Because it is the Recycle "
                                               "Bin.",
                                               session.Shown(object.path)));
        ++skipped;
    } else {
        queue.push_back({std::string(object.actual), std::string(object.path)});
        session::LogTimed(session, text::Concat({" ", session.Shown(object.path),
                                                 " is queued for the recycle bin."}));
    }
}

bool WasCancelled(const Session& session, const ActionRun& run) {
    return session.state.blnStopAction || run.bytOverrideAnswer == kOverrideCancel ||
           session.forms.frmOverrideRecycleFail.Answer == kOverrideCancel;
}

// False when the user cancelled, and nothing must be recycled.
bool BuildQueue(Session& session, ActionRun& run, std::vector<RecycleEntry>& queue) {
    const auto count = static_cast<std::size_t>(session.selection->lngSelTop + 1);
    queue.reserve(count);
    session.state.lastAction.wanted = session.selection->lngSelTop + 1;
    for (std::size_t index = 0; index < count; ++index) {
        session.Yield();
        if (!session.state.blnStopAction) QueueOne(session, run, index, queue);
        if (!WasCancelled(session, run)) continue;
        session::LogTimed(session, " User canceled delete of the objects");
        return false;
    }
    return true;
}

// Shows how far a long recycling is; a short one goes without.
class RecyclingShown {
  public:
    RecyclingShown(Session& session, std::size_t total)
        : session_(session), total_(total), due_(session.platform.clock.Steady() + kFirstShown) {}

    bool Step(std::size_t done) {
        session_.Yield();
        if (session_.platform.clock.Steady() >= due_) Show(done);
        return !session_.state.blnStopAction;
    }

  private:
    static constexpr std::int64_t kFirstShown = 300'000'000; // ns
    static constexpr std::int64_t kAgain = 50'000'000;

    void Show(std::size_t done) {
        auto& form = session_.forms.frmProgress;
        form.lblMain.Caption = fmt::format(
            "Recycling {} of {} objects", text::Format(static_cast<std::int64_t>(done), "#,##0"),
            text::Format(static_cast<std::int64_t>(total_), "#,##0"));
        form.prgMain.Max = static_cast<long long>(total_);
        form.prgMain.Value = static_cast<long long>(done);
        form.Show();
        due_ = session_.platform.clock.Steady() + kAgain;
    }

    Session& session_;
    std::size_t total_;
    std::int64_t due_;
};

void RecycleQueue(Session& session, const std::vector<RecycleEntry>& queue) {
    auto& form = session.frmSearch;
    auto& state = session.state;
    auto& totals = state.lastAction;
    const std::string before = form.lblStatus.Caption.Get();
    form.lblStatus.Caption = session.forms.frmOverrideRecycleFail.Answer == kOverrideYesToAll
                                 ? "Recycling or permanently deleting: Everything selected at once."
                                 : "Recycling: Everything selected at once.";
    session.Repaint();
    RecyclingShown shown(session, queue.size());
    const RecycleOutcome outcome = RecycleObjects(
        session, queue, false, [&shown](std::size_t done) { return shown.Step(done); });
    totals.done += static_cast<std::int64_t>(outcome.gone);
    totals.deleted += static_cast<std::int64_t>(outcome.deleted);
    totals.failed += static_cast<std::int64_t>(outcome.failed);
    totals.skipped += static_cast<std::int64_t>(queue.size() - outcome.gone - outcome.failed);
    state.blnActionCancelled = outcome.blnStopped;
    if (state.blnStopAction) session::LogTimed(session, " User stopped the delete of the objects.");
    // One object that failed has had its line.
    if (outcome.blnPartial) {
        session::LogTimed(session, " Was unable to delete some (or one) of the queued objects"
                                   " to the recycle bin.");
    } else if (outcome.Succeeded()) {
        session::LogTimed(session, " Deleted all queued objects to the recycle bin.");
    }
    form.lblStatus.Caption = before;
}

void DeleteSelection(Session& session) {
    TellThatItAsks(session);
    session::LogTimed(session,
                      " User selected to delete all selected objects to the recycle bin at start.");
    const StopButton stoppable(session);
    const ActionRequest request{.strAction = session.state.strAction};
    ActionRun run(session, request);
    std::vector<RecycleEntry> queue;
    if (!BuildQueue(session, run, queue)) {
        session.state.blnActionCancelled = true;
    } else if (!queue.empty()) {
        RecycleQueue(session, queue);
    }
}

} // namespace

void cmdDeleteSelected_Click(Session& session) {
    auto& state = session.state;
    auto& form = session.frmSearch;
    if (state.options.blnAutoMode) form.lblStatus.Caption = "Deleting";
    state.strAction = "Delete";
    state.blnActionCancelled = false;
    session.forms.frmOverrideDialog.Answer = kOverrideNo;
    state.lastAction = {};
    results::BuildFileArray(session);
    if (session.selection->lngSelTop < 0) {
        if (!state.blnAutoMove && !state.blnAutoPlayList)
            session.MsgBox(PromptId::kNothingSelected, "Nothing is selected.");
        return;
    }
    if (!state.blnRepeatDeleteEmpty && !Confirm(session)) {
        state.blnActionCancelled = true;
        return;
    }
    DeleteSelection(session);
    session.forms.frmOverrideRecycleFail.Answer = kOverrideNo;
    if (state.blnRepeatDeleteEmpty) return;
    state.blnRepeatRequested = state.blnRedoNow = true;
    results::CountSelection(session);
    session.events.Raise(session, "frmSearch.Form_Activate");
}

void AddDeleteEvents(session::EventTable& events) {
    events.On("frmSearch.cmdDeleteSelected_Click", cmdDeleteSelected_Click);
    AddRecycleEvents(events);
}

} // namespace tarvix::actions
