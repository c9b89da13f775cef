#include "batch/automated_playlists.h"

#include "batch/ask_playlist_batch.h"
#include "batch/batch_prompts.h"
#include "batch/batch_scope.h"
#include "batch/playlist_steps.h"
#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "platform/try.h"
#include "session/errors.h"
#include "session/session.h"

#include <fmt/core.h>

namespace tarvix::batch {

namespace {

using platform::Result;
using session::Session;

constexpr std::string_view kLocalAction = "Automated Playlist Gen";
constexpr std::string_view kFullAction = "Automated Playlist Gen Full";

PlaylistPlace PlaceOf(const PlaylistBatch& batch) {
    return batch.IsFull() ? PlaylistPlace::kInOneFolder : PlaylistPlace::kInEachFolder;
}

std::string_view ActionOf(const PlaylistBatch& batch) {
    return batch.IsFull() ? kFullAction : kLocalAction;
}

// Why no playlist can lie there; empty when one can.
std::string WhyNotIn(Session& session, std::string_view folder) {
    return platform::GetFolder(session.files(), folder)
               ? std::string()
               : fmt::format("{} is no folder.", session.Shown(folder));
}

void SearchFor(Session& session, const PlaylistBatch& batch, const StepLine& line,
               const std::string& folder) {
    auto& form = session.frmSearch;
    form.cmbSearchFor.Text = line.search;
    if (!batch.IsFull()) form.cmbDir.Text = folder;
    session.state.batch = {.strDestination = folder};
    session.Raise(form.cmdSearch, "Click");
}

// The flags of the whole run.
class PlaylistFlags {
  public:
    PlaylistFlags(session::SessionState& state, const PlaylistBatch& batch) : state_(state) {
        state.blnAutoPlayListFull = batch.IsFull();
        state.blnAutoPlayListFullPaths = batch.writesFullPaths;
        state.blnAutoPlayListLocal = !batch.writesFullPaths;
        state.strPlaylistFolder = batch.folder;
    }
    ~PlaylistFlags() {
        state_.blnAutoPlayListFull = state_.blnAutoPlayListFullPaths = false;
        state_.blnAutoPlayListLocal = false;
    }
    PlaylistFlags(const PlaylistFlags&) = delete;
    PlaylistFlags& operator=(const PlaylistFlags&) = delete;

  private:
    session::SessionState& state_;
};

class PlaylistRun {
  public:
    PlaylistRun(Session& session, const PlaylistBatch& batch)
        : session_(session), batch_(batch), prompts_(session), flags_(session.state, batch),
          steps_(session.files(), batch), count_(steps_.Count()) {}

    BatchOutcome Run() {
        if (auto done = GoDownLists(); !done) outcome_.error = std::move(done.error());
        outcome_.answered = prompts_.Answered();
        return std::move(outcome_);
    }

  private:
    Result<void> GoDownLists() {
        TX_TRY(steps_.Restart());
        while (true) {
            TX_TRY_ASSIGN(const std::optional<StepLine> line, steps_.Next());
            if (line) RunStep(*line);
            session_.Yield();
            outcome_.isStopped = IsStopped(session_.state);
            if (outcome_.isStopped || (!line && !session_.state.blnSkipSearch)) return {};
            if (!line) return steps_.ReadPastMark();
        }
    }

    void RunStep(const StepLine& line) {
        auto& state = session_.state;
        const std::string folder = session_.platform.paths.ToDrive(line.destination);
        ShowStep(session_, "Playlist", ++line_, count_, line.search, line.destination);
        BatchStep step{.search = line.search, .destination = line.destination};
        state.strAction = ActionOf(batch_);
        state.lastAction = {};
        state.blnErrorOccurred = state.blnSkipSearch = false;
        step.wrong = WhyNotIn(session_, folder);
        if (step.wrong.empty()) {
            SearchFor(session_, batch_, line, folder);
            TakeResult(step);
        } else {
            session::LogTimed(session_,
                              fmt::format(" {}\r\nThis search step skipped.\r\n", step.wrong));
        }
        outcome_.steps.push_back(std::move(step));
    }

    void TakeResult(BatchStep& step) {
        const auto& state = session_.state;
        const bool isFound = state.lngFilesFound + state.lngFoldersFound > 0;
        step.isSkipped = state.blnSkipSearch;
        step.unread = static_cast<std::int64_t>(state.unread.All().size());
        step.done = state.lastAction.done;
        step.skipped = state.lastAction.skipped;
        if (step.isSkipped || IsStopped(state)) return;
        if (!isFound) {
            return session::LogTimed(session_, " Was unable to Generate Playlist , no objects "
                                               "found.\r\nThis search step skipped.\r\n");
        }
        if (state.blnErrorOccurred) {
            step.wrong = fmt::format("the playlist could not be written: {}", state.strErrDesc);
        } else if (step.done > 0) {
            step.file = session_.frmDialog.cmbDir.Text;
        }
    }

    Session& session_;
    const PlaylistBatch& batch_;
    BatchPrompts prompts_;
    PlaylistFlags flags_;
    PlaylistSteps steps_;
    std::int64_t count_;
    std::int64_t line_ = 0;
    BatchOutcome outcome_;
};

BatchOutcome RunLocked(Session& session, const PlaylistBatch& batch) {
    const BatchScope scope(session, &session::SessionState::blnAutoPlayList);
    return PlaylistRun(session, batch).Run();
}

} // namespace

BatchOutcome RunPlaylists(Session& session, const PlaylistBatch& batch) {
    BatchOutcome outcome = RunLocked(session, batch);
    if (outcome.error) {
        session::TellUnexpected(session, *outcome.error, RoutineOf(PlaceOf(batch)),
                                batch.searchList, "frmSearch");
    }
    return outcome;
}

Result<std::vector<PlannedStep>> PlanPlaylists(Session& session, const PlaylistBatch& batch) {
    const BatchPrompts prompts(session);
    const platform::KeptListings listings(session.files());
    session.state.strAction = ActionOf(batch); // whose searches ask nothing
    PlaylistSteps steps(session.files(), batch);
    TX_TRY(steps.Restart());
    const std::int64_t count = steps.Count();
    std::vector<PlannedStep> plan;
    while (true) {
        TX_TRY_ASSIGN(const std::optional<StepLine> line, steps.Next());
        if (!line) return plan;
        ShowStep(session, "Counting", static_cast<std::int64_t>(plan.size()) + 1, count,
                 line->search, line->destination);
        const std::string folder = session.platform.paths.ToDrive(line->destination);
        PlannedStep step{.search = line->search, .destination = line->destination};
        step.isThere = platform::GetFolder(session.files(), folder).has_value();
        if (step.isThere) {
            SearchFor(session, batch, *line, folder);
            if (IsStopped(session.state)) return plan;
            step.matches = session.state.lngFilesFound + session.state.lngFoldersFound;
        }
        plan.push_back(std::move(step));
    }
}

} // namespace tarvix::batch
