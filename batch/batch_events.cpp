#include "batch/batch_events.h"

#include "batch/ask_move_batch.h"
#include "batch/ask_page_show.h"
#include "batch/ask_playlist_batch.h"
#include "batch/automated_move.h"
#include "batch/automated_playlists.h"
#include "batch/batch_scope.h"
#include "batch/batch_table.h"
#include "batch/script_recorder.h"
#include "session/errors.h"
#include "session/prompt_id.h"
#include "session/session.h"

namespace tarvix::batch {

namespace {

using session::PromptId;
using session::Session;

constexpr BatchWords kMoveWords{
    "Automated Move", "Are you sure you want to perform an 'Automated Move' Operation?", "moved"};
constexpr BatchWords kPlaylistWords{
    "Automated Playlist Gen",
    "Are you sure you want to perform an 'Automated PlayList Generation' Operation?", "written"};

using Plan = platform::Result<std::vector<PlannedStep>>;

// Puts what a plan has searched for out of the boxes again.
class BoxesAsTheyStand {
  public:
    explicit BoxesAsTheyStand(Session& session)
        : session_(session), searchFor_(session.frmSearch.cmbSearchFor.Text),
          locations_(session.frmSearch.cmbDir.Text) {}
    ~BoxesAsTheyStand() {
        session_.frmSearch.cmbSearchFor.Text = searchFor_;
        session_.frmSearch.cmbDir.Text = locations_;
        HideStep(session_);
    }
    BoxesAsTheyStand(const BoxesAsTheyStand&) = delete;
    BoxesAsTheyStand& operator=(const BoxesAsTheyStand&) = delete;

  private:
    Session& session_;
    std::string searchFor_;
    std::string locations_;
};

// Asks whether to start: with the plan where that can be shown.
template <class Batch>
bool Confirms(Session& session, const BatchWords& words, PromptId question, const Batch& batch,
              Plan (*makePlan)(Session&, const Batch&), std::string_view routine) {
    if (!ShowsTables(session)) return session.MsgBox(question, words.question) == session::kYes;
    const BoxesAsTheyStand boxes(session);
    const Plan plan = makePlan(session, batch);
    if (!plan) {
        session::TellUnexpected(session, plan.error(), routine, batch.searchList, "frmSearch");
        return false;
    }
    return !IsStopped(session.state) && ConfirmByTable(session, words, *plan);
}

void TellEnd(Session& session, const BatchWords& words, PromptId id, std::string_view ended,
             const BatchOutcome& outcome) {
    if (outcome.error) return;
    if (ShowsTables(session)) return TellByTable(session, words, ended, outcome);
    session.MsgBox(id, ended);
}

std::string_view MoveEnd(const BatchOutcome& outcome) {
    if (outcome.isStopped) return "Automated move stopped by user.";
    return outcome.HasErrors()
               ? "Automated move is complete, but there were errors. View current action log."
               : "Automated move is complete.";
}

void mnuTools_AutomatedMove_Click(Session& session) {
    session.state.strAction = kMoveAction;
    session::LogTimed(session, " User selected to do a batch search and move.");
    const auto batch = AskMoveBatch(session);
    if (!batch || !Confirms(session, kMoveWords, PromptId::kConfirmBatchMove, *batch,
                            PlanAutomatedMove, "mnuTools_AutomatedMove_Click")) {
        return;
    }
    const BatchOutcome outcome = RunAutomatedMove(session, *batch);
    TellEnd(session, kMoveWords, PromptId::kBatchMoveEnded, MoveEnd(outcome), outcome);
}

void GeneratePlaylists(Session& session, PlaylistPlace place) {
    session.state.strAction = place == PlaylistPlace::kInOneFolder ? "Automated Playlist Gen Full"
                                                                   : "Automated Playlist Gen";
    session::LogTimed(session, " User selected to do a batch search and Generate Playlists.");
    const auto batch = AskPlaylistBatch(session, place);
    if (!batch || !Confirms(session, kPlaylistWords, PromptId::kConfirmPlaylists, *batch,
                            PlanPlaylists, RoutineOf(place))) {
        return;
    }
    const BatchOutcome outcome = RunPlaylists(session, *batch);
    TellEnd(session, kPlaylistWords, PromptId::kPlaylistsEnded,
            outcome.isStopped ? "Automated Playlist Generation stopped by user."
                              : "Automated Playlist Generation is complete.",
            outcome);
}

} // namespace

void AddBatchEvents(session::EventTable& events) {
    events.On("frmSearch.mnuTools_AutomatedMove_Click", mnuTools_AutomatedMove_Click);
    events.On("frmSearch.mnuTools_AutomatedPlayListGen_Click", [](Session& session, const auto&) {
        GeneratePlaylists(session, PlaylistPlace::kInEachFolder);
    });
    events.On("frmSearch.mnuTools_AutomatedPlayListGen_Full_Click",
              [](Session& session, const auto&) {
                  GeneratePlaylists(session, PlaylistPlace::kInOneFolder);
              });
    AddTableEvents(events);
    AddPageEvents(events);
    AddRecorderEvents(events);
}

} // namespace tarvix::batch
