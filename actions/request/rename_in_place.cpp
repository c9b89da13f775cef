#include "actions/request/rename_in_place.h"

#include "actions/place/action_run.h"
#include "actions/request/outcome_page.h"
#include "actions/run/outcome_recorder.h"
#include "actions/run/rename_only.h"
#include "results/result_list.h"
#include "results/selection.h"
#include "session/paths/ask_long_path.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/tell.h"

#include <fmt/core.h>

#include <optional>
#include <string>
#include <vector>

namespace tarvix::actions {

namespace {

using session::Session;

// The selection with one row alone, and what was selected before.
class OnlyRow {
  public:
    OnlyRow(Session& session, std::size_t row) : session_(session) {
        results::ResultList& rows = *session.rows;
        selected_.resize(rows.Count());
        for (std::size_t i = 0; i < rows.Count(); ++i) {
            selected_[i] = rows.At(i).selected;
            rows.At(i).selected = i == row;
        }
        results::BuildFileArray(session);
    }
    ~OnlyRow() {
        for (std::size_t i = 0; i < selected_.size(); ++i)
            session_.rows->At(i).selected = selected_[i];
        results::BuildFileArray(session_);
    }
    OnlyRow(const OnlyRow&) = delete;
    OnlyRow& operator=(const OnlyRow&) = delete;

  private:
    Session& session_;
    std::vector<bool> selected_;
};

// Whether the object bears the name by then.
bool Rename(Session& session, const std::string& name) {
    auto& state = session.state;
    state.strAction = "Rename";
    state.bytPathChoice = session::kPathSkip;
    state.blnActionCancelled = state.blnErrorOccurred = false;
    const std::string_view path = session.selection->strSelPath.front();
    session::LogTimed(session, fmt::format(" User selected to rename in place: {} as: {}",
                                           session.Shown(path), session.Shown(name)));
    ActionRequest request{.strAction = "Rename"};
    request.rename.given = name;
    std::optional<OutcomeRecorder> recorder;
    if (session.outcomes != nullptr) recorder.emplace(session, request);
    ActionRun run(session, request, recorder ? &*recorder : nullptr);
    return RenameOnly(session, run).blnRenamed;
}

} // namespace

void RenameInPlace(Session& session, std::size_t row, std::string_view name) {
    if (row >= session.rows->Count()) return;
    const results::ResultRow& listed = session.rows->At(row);
    if (listed.IsSpacer() || listed.name == name || session.state.blnPlayListMode) return;
    const std::string before(listed.name);
    const std::string now(name);
    if (now.empty()) {
        return session::TellAndLog(
            session, session::PromptId::kRenameEmpty,
            fmt::format("{} keeps its name, since a name can't be empty.", session.Shown(before)));
    }
    const OutcomeWatch watch(session);
    bool isRenamed = false;
    {
        const OnlyRow only(session, row);
        isRenamed = Rename(session, now);
        if (isRenamed) session.rows->Rename(row, now);
    }
    if (!isRenamed) return;
    OfferOutcome(session, watch);
    session.frmSearch.lblStatus.Caption =
        fmt::format("Renamed {} as {}.", session.Shown(before), session.Shown(now));
}

void AddRenameInPlaceEvents(session::EventTable& events) {
    events.On(std::string(kRenameInPlace), [](Session& session, const session::EventArgs& args) {
        if (args.index >= 0) {
            RenameInPlace(session, static_cast<std::size_t>(args.index), args.path);
        }
    });
}

} // namespace tarvix::actions
