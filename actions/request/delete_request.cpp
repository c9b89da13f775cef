#include "actions/request/delete_request.h"

#include "actions/place/action_run.h"
#include "actions/place/object.h"
#include "actions/place/recycle.h"
#include "actions/place/system_hidden.h"
#include "actions/request/outcome_page.h"
#include "actions/request/stoppable_loop.h"
#include "actions/run/changed_objects.h"
#include "actions/run/figures.h"
#include "actions/run/outcome_recorder.h"
#include "results/outcome_list.h"
#include "results/row_marks.h"
#include "results/selection.h"
#include "session/lifecycle_events.h"
#include "session/paths/recycle_folders.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/wordings.h"
#include "text/characters.h"
#include "text/readable_size.h"

#include <fmt/core.h>

#include <algorithm>
#include <iterator>
#include <optional>

namespace tarvix::actions {

namespace {

using session::PromptId;
using session::Session;

bool NeedsWarning(Session& session) {
    const auto& form = session.frmSearch;
    if (form.chkIncludeSubFolders.Value != 1) return false;
    const auto& isFile = session.selection->blnSelIsFile;
    const auto folders = std::ranges::count(isFile, false);
    const auto files = std::ranges::count(isFile, true);
    return (!form.optFilesVsDirs[4].Value && folders > 1) || (files >= 1 && folders == 1);
}

// "Move 4 files (40 kB) and 2 folders to the trash?"
std::string DeleteQuestion(const results::Selection& selection) {
    const auto& isFile = selection.blnSelIsFile;
    const auto files = static_cast<std::int64_t>(std::ranges::count(isFile, true));
    const auto folders = static_cast<std::int64_t>(std::ranges::count(isFile, false));
    std::string told = "Move ";
    if (files > 0) {
        told += fmt::format("{} ({})", Counted(files, "file"),
                            text::ReadableSize(static_cast<std::uint64_t>(selection.lngSelBytes)));
    }
    if (folders > 0) told += (files > 0 ? " and " : "") + Counted(folders, "folder");
    told += " to the trash?";
    if (folders > 0) {
        told += fmt::format("\r\n\r\n{} with all that {} in {}.",
                            folders == 1 ? "The folder goes" : "The folders go", "is",
                            folders == 1 ? "it" : "them");
    }
    return told;
}

bool Confirm(Session& session) {
    const bool isWarned = NeedsWarning(session);
    const auto id = isWarned ? PromptId::kConfirmDeleteWarned : PromptId::kConfirmDelete;
    const std::string_view warning =
        isWarned ? session::Worded(session, session::Wording::kReallyDelete) : "";
    const std::string told =
        text::Concat({warning, session::Worded(session, session::Wording::kConfirmDelete)});
    if (!session::SpeaksPlainly(session)) return session.MsgBox(id, told) == session::kYes;
    return session.MsgBox(id, told, DeleteQuestion(*session.selection), "Move to Trash") ==
           session::kYes;
}

// A deletion asks in automatic mode, too.
void TellThatItAsks(Session& session) {
    if (!session.state.options.blnAutoMode || session.state.blnRepeatDeleteEmpty) return;
    session.MsgBox(PromptId::kAutomaticModeOff, "Turning off automatic mode during delete.");
}

// One deletion, between its confirmation and its report.
class Deletion {
  public:
    Deletion(Session& session, const ActionRequest& request, OutcomeRecorder* recorder)
        : session_(session), run_(session, request, recorder), recorder_(recorder) {
        run_.same = platform::Same::kContent;
    }

    void Run();

  private:
    struct Queued {
        std::vector<RecycleEntry> entries;
        std::vector<std::size_t> indexes; // in the selection
    };

    // Each gives false when the user cancelled.
    bool Delete(const std::vector<ChangedObject>& objects);
    bool BuildQueue(const std::vector<ChangedObject>& objects, Queued& queue);
    void QueueOne(std::size_t index, Queued& queue);
    void LeaveAlone(std::size_t index, results::OutcomeMark mark);
    void RecycleQueue(const Queued& queue);
    void Count(const Queued& queue, const RecycleOutcome& outcome);
    bool WasCancelled() const;

    Session& session_;
    ActionRun run_;
    OutcomeRecorder* recorder_;          // may be null
    std::vector<ChangedObject> changed_; // not what the search saw
    platform::ManyChanges many_{session_.files()};
};

void Deletion::Run() {
    const auto count = static_cast<std::size_t>(session_.selection->lngSelTop + 1);
    const session::InLoop inLoop(session_, session_.selection->lngSelTop + 1);
    std::vector<ChangedObject> objects(count);
    session_.state.lastAction.wanted = session_.selection->lngSelTop + 1;
    for (std::size_t index = 0; index < count; ++index)
        objects[index].index = index;
    const bool goesOn = Delete(objects) && !session_.state.blnActionCancelled;
    const std::vector<ChangedObject> changed = std::move(changed_);
    changed_.clear();
    if (!goesOn || !GoesOnWithChanged(session_, run_, changed)) {
        return FoldChanged(session_, run_, changed);
    }
    (void)Delete(changed);
    FoldChanged(session_, run_, changed_);
}

bool Deletion::Delete(const std::vector<ChangedObject>& objects) {
    Queued queue;
    if (!BuildQueue(objects, queue)) {
        session_.state.blnActionCancelled = true;
        return false;
    }
    if (!queue.entries.empty()) RecycleQueue(queue);
    return true;
}

bool Deletion::WasCancelled() const {
    return session_.state.blnStopAction || run_.bytOverrideAnswer == kOverrideCancel ||
           session_.forms.frmOverrideRecycleFail.Answer == kOverrideCancel;
}

bool Deletion::BuildQueue(const std::vector<ChangedObject>& objects, Queued& queue) {
    queue.entries.reserve(objects.size());
    queue.indexes.reserve(objects.size());
    for (const ChangedObject& object : objects) {
        session_.Yield();
        if (!session_.state.blnStopAction) QueueOne(object.index, queue);
        if (!WasCancelled()) continue;
        session::LogTimed(session_, " User canceled delete of the objects");
        return false;
    }
    return true;
}

void Deletion::QueueOne(std::size_t index, Queued& queue) {
    const Object object = ObjectAt(*session_.selection, index);
    run_.leftParts.RemoveAround(session_, object.actual);
    const Protection found = CheckSystemHidden(session_, run_, object, false);
    if (found.IsChanged()) {
        changed_.push_back({index});
    } else if (found.isProtected) {
        session::LogTimed(session_,
                          text::Concat({" User skipped delete of ", session_.Shown(object.path)}));
        LeaveAlone(index, results::OutcomeMark::kProtected);
    } else if (session::IsRecycleBin(object.path)) {
        session::LogTimed(session_, fmt::format(" Skipped delete of {}. Because it is the Recycle "
                                                "Bin.",
                                                session_.Shown(object.path)));
        LeaveAlone(index, results::OutcomeMark::kLeftAlone);
    } else {
        queue.entries.push_back(
            {std::string(object.actual), std::string(object.path), object.sighting, run_.same});
        queue.indexes.push_back(index);
        session::LogPlanned(session_, text::Concat({" ", session_.Shown(object.path),
                                                    " is queued for the recycle bin."}));
    }
}

void Deletion::LeaveAlone(std::size_t index, results::OutcomeMark mark) {
    ++session_.state.lastAction.skipped;
    if (recorder_ != nullptr) recorder_->LeftAlone(index, mark);
}

void Deletion::RecycleQueue(const Queued& queue) {
    session_.log.Flush(session_);
    auto& form = session_.frmSearch;
    const std::string before = form.lblStatus.Caption.Get();
    const bool deletes = session_.forms.frmOverrideRecycleFail.Answer == kOverrideYesToAll;
    form.lblStatus.Caption =
        std::string(session::Worded(session_, deletes ? session::Wording::kRecycleOrDeleteAtOnce
                                                      : session::Wording::kRecycleAtOnce));
    session_.Repaint();
    LoopShown shown(
        session_, queue.entries.size(), [this](std::string_view done, std::string_view all) {
            return session::Worded(session_, session::Wording::kRecycleProgress, done, all);
        });
    const RecycleOutcome outcome = RecycleObjects(
        session_, queue.entries, false, [&shown](std::size_t done) { return shown.Step(done); },
        [&](const SettledEntry& entry) {
            if (recorder_ != nullptr) recorder_->Recycled(queue.indexes[entry.place], entry);
        });
    Count(queue, outcome);
    if (session_.state.blnStopAction) {
        session::LogTimed(session_, " User stopped the delete of the objects.");
    }
    // One object that failed has had its line.
    if (outcome.blnPartial) {
        session::LogTimed(session_, " Was unable to delete some (or one) of the queued objects"
                                    " to the recycle bin.");
    } else if (outcome.Succeeded()) {
        session::LogTimed(session_, " Deleted all queued objects to the recycle bin.");
    }
    form.lblStatus.Caption = before;
}

void Deletion::Count(const Queued& queue, const RecycleOutcome& outcome) {
    auto& totals = session_.state.lastAction;
    const std::size_t settled = outcome.gone + outcome.failed + outcome.changed.size();
    totals.done += static_cast<std::int64_t>(outcome.gone);
    totals.deleted += static_cast<std::int64_t>(outcome.deleted);
    totals.failed += static_cast<std::int64_t>(outcome.failed);
    std::ranges::copy(outcome.errors, std::back_inserter(totals.errors));
    totals.skipped += static_cast<std::int64_t>(queue.entries.size() - settled);
    session_.state.blnActionCancelled = outcome.blnStopped;
    for (const std::size_t place : outcome.changed)
        changed_.push_back({queue.indexes[place]});
}

void DeleteSelection(Session& session) {
    TellThatItAsks(session);
    session::LogTimed(session,
                      " User selected to delete all selected objects to the recycle bin at start.");
    const StopButton stoppable(session);
    const ActionRequest request{.strAction = session.state.strAction};
    std::optional<OutcomeRecorder> recorder;
    const bool isLookedAt = session.outcomes != nullptr && !session.state.IsBatch() &&
                            !session.state.blnRepeatDeleteEmpty;
    if (isLookedAt) recorder.emplace(session, request);
    Deletion(session, request, recorder ? &*recorder : nullptr).Run();
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
        if (!state.IsBatch()) session.MsgBox(PromptId::kNothingSelected, "Nothing is selected.");
        return;
    }
    if (!state.blnRepeatDeleteEmpty && !Confirm(session)) {
        state.blnActionCancelled = true;
        return;
    }
    const OutcomeWatch watch(session);
    DeleteSelection(session);
    session.forms.frmOverrideRecycleFail.Answer = kOverrideNo;
    if (state.blnRepeatDeleteEmpty) return;
    state.blnRepeatRequested = state.blnRedoNow = true;
    results::MarkGone(session, watch.HasNew(session) ? session.outcomes : nullptr);
    results::CountSelection(session);
    session.events.Raise(session, "frmSearch.Form_Activate");
    OfferOutcome(session, watch);
}

// Keeps what was answered for all from one object to the next.
void RecycleSelected(Session& session, const session::EventArgs& args) {
    const ActionRequest request{.strAction = "Delete"};
    ActionRun run(session, request);
    run.same = platform::Same::kContent;
    const Object object = ObjectAt(*session.selection, static_cast<std::size_t>(args.index));
    auto& totals = session.state.lastAction;
    const Protection found = CheckSystemHidden(session, run, object, false);
    if (found.isProtected) {
        ++(found.look ? totals.skipped : totals.failed);
    } else {
        const RecycleOutcome outcome = RecycleObjects(
            session,
            {{std::string(object.actual), std::string(object.path), object.sighting, run.same}},
            false);
        totals.done += static_cast<std::int64_t>(outcome.gone);
        totals.deleted += static_cast<std::int64_t>(outcome.deleted);
        totals.failed += static_cast<std::int64_t>(outcome.failed + outcome.changed.size());
    }
    if (run.bytOverrideAnswer == kOverrideCancel ||
        session.forms.frmOverrideRecycleFail.Answer == kOverrideCancel) {
        session.state.blnStopAction = true;
    }
}

void AddDeleteEvents(session::EventTable& events) {
    events.On(std::string(lifecycle::kRecycleSelected), RecycleSelected);
    events.On("frmSearch.cmdDeleteSelected_Click", cmdDeleteSelected_Click);
    AddRecycleEvents(events);
}

} // namespace tarvix::actions
