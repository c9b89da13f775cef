#include "session/runs.h"

#include "platform/file_system.h"
#include "session/event_table.h"
#include "session/old_logs.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/text_viewer.h"
#include "text/case.h"
#include "text/format.h"

#include <fmt/core.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tarvix::session {

namespace {

bool IsOfThisRun(const Session& session, const RunLog& log) {
    return text::EqualNoCase(log.path, session.state.strActionLogFile);
}

std::string LineOf(Session& session, const RunLog& log) {
    const auto facts = session.files().Facts(log.path);
    const std::string size =
        facts
            ? fmt::format("{} bytes", text::Format(static_cast<std::int64_t>(facts->size), "#,##0"))
            : "";
    return fmt::format("{}    {}{}", text::FormatDate(log.started, "yyyy-mm-dd hh:nn:ss"), size,
                       IsOfThisRun(session, log) ? "    this run" : "");
}

std::string KeptText(const LogsKept& kept) {
    if (kept.most == 0) return "All are kept";
    if (kept.inDays) return fmt::format("Those of the last {} days are kept", kept.most);
    return fmt::format("The last {} are kept", kept.most);
}

// The window's lines are those of the logs that it showed last.
class RunsPage {
  public:
    void Open(Session& session) {
        auto& form = session.forms.frmRuns;
        Show(session);
        if (!logs_.empty()) form.lstRuns.Select(0, true);
        ShowButtons(session);
        form.Focus = &form.lstRuns;
        session.ShowModal(PromptId::kRuns);
        form.lstRuns.SetItems({});
    }

    void ShowButtons(Session& session) const {
        auto& form = session.forms.frmRuns;
        const RunLog* chosen = Chosen(session);
        form.cmdView.Enabled = chosen != nullptr;
        form.cmdRecycle.Enabled = chosen != nullptr && !IsOfThisRun(session, *chosen);
    }

    void View(Session& session, std::size_t line) const {
        if (line >= logs_.size()) return;
        ViewAsText(session, logs_[line].path, "mnuToolViewAnyActionLog_Click");
    }

    void ViewChosen(Session& session) const {
        if (const RunLog* chosen = Chosen(session)) {
            View(session, static_cast<std::size_t>(chosen - logs_.data()));
        }
    }

    void RecycleChosen(Session& session) {
        const RunLog* chosen = Chosen(session);
        if (chosen == nullptr || IsOfThisRun(session, *chosen)) return;
        const std::string path = chosen->path;
        session.events.Raise(session, kRecycleFile, {.path = path});
        Show(session);
    }

  private:
    void Show(Session& session) {
        auto& form = session.forms.frmRuns;
        logs_ = ListRunLogs(session);
        std::vector<std::string> lines;
        lines.reserve(logs_.size());
        for (const RunLog& log : logs_)
            lines.push_back(LineOf(session, log));
        form.lblMain.Caption = fmt::format(
            "{} run{} with an action log in {}. {}, as LogsKept in the options says.", logs_.size(),
            logs_.size() == 1 ? "" : "s", session.Shown(session.state.strDataFolder),
            KeptText(session.state.platformSettings.logsKept));
        form.lstRuns.SetItems(std::move(lines));
        ShowButtons(session);
    }

    const RunLog* Chosen(const Session& session) const {
        const auto& list = session.forms.frmRuns.lstRuns;
        const std::size_t lines = std::min(logs_.size(), list.Items().size());
        for (std::size_t line = 0; line < lines; ++line) {
            if (list.IsSelected(line)) return &logs_[line];
        }
        return nullptr;
    }

    std::vector<RunLog> logs_;
};

} // namespace

void AddRunsEvents(EventTable& events) {
    const auto page = std::make_shared<RunsPage>();
    events.On("frmSearch.mnuToolViewRuns_Click",
              [page](Session& session, const EventArgs&) { page->Open(session); });
    events.On("frmRuns.lstRuns_Click",
              [page](Session& session, const EventArgs&) { page->ShowButtons(session); });
    events.On("frmRuns.lstRuns_DblClick", [page](Session& session, const EventArgs& args) {
        if (args.index >= 0) page->View(session, static_cast<std::size_t>(args.index));
    });
    events.On("frmRuns.cmdView_Click",
              [page](Session& session, const EventArgs&) { page->ViewChosen(session); });
    events.On("frmRuns.cmdRecycle_Click",
              [page](Session& session, const EventArgs&) { page->RecycleChosen(session); });
    events.On("frmRuns.cmdOK_Click",
              [](Session& session, const EventArgs&) { session.forms.frmRuns.Hide(); });
}

} // namespace tarvix::session
