#include "batch/batch_table.h"

#include "session/input_recorder.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/format.h"

#include <fmt/core.h>

#include <algorithm>
#include <string>
#include <utility>

namespace tarvix::batch {

namespace {

using session::Session;

std::string Plural(std::int64_t count, std::string_view noun) {
    return fmt::format("{} {}{}", text::Format(count, "#,##0"), noun, count == 1 ? "" : "s");
}

std::string PlanSummary(const std::vector<PlannedStep>& plan) {
    std::int64_t matches = 0;
    for (const PlannedStep& step : plan) {
        matches += step.matches;
    }
    const auto missing = std::ranges::count(plan, false, &PlannedStep::isThere);
    std::string text = fmt::format("{} with {} as things stand.",
                                   Plural(static_cast<std::int64_t>(plan.size()), "step"),
                                   Plural(matches, "object"));
    if (missing > 0)
        text +=
            fmt::format(" {} {} missing.", Plural(missing, "folder"), missing == 1 ? "is" : "are");
    return text;
}

std::string OutcomeSummary(const BatchOutcome& outcome) {
    std::string text;
    if (outcome.emptied > 0) {
        text += fmt::format("\r\n\r\nDeleted {}.", Plural(outcome.emptied, "empty folder"));
    }
    if (outcome.stillThere > 0) {
        text +=
            fmt::format("\r\n\r\nCould not delete {}.", Plural(outcome.stillThere, "empty folder"));
    }
    if (outcome.answered > 0) {
        text += fmt::format("\r\n\r\n{} came up and got the safe answer; the action log has {}.",
                            Plural(outcome.answered, "question"),
                            outcome.answered == 1 ? "it" : "them");
    }
    return text;
}

// In other fronts a message box stands in place of the table: a script of what the user does has
// its answer.
void ShowTable(Session& session) {
    session::InputRecorder* recorder = std::exchange(session.recorder, nullptr);
    session.ShowModal(session::PromptId::kBatchTable);
    session.recorder = recorder;
    if (recorder == nullptr) return;
    const auto& form = session.forms.frmBatch;
    recorder->Answered(form.isDone ? "OK" : form.starts ? "Yes" : "No");
}

fields::FrmBatch& Prepare(Session& session, const BatchWords& words, bool isDone) {
    auto& form = session.forms.frmBatch;
    form.Caption = std::string(words.title);
    form.isDone = isDone;
    form.starts = false;
    form.rows.clear();
    form.cmdOK.Caption = isDone ? "&Close" : "&Start";
    form.cmdCancel.Visible = !isDone;
    return form;
}

} // namespace

bool ShowsTables(const Session& session) {
    return (session.standIn ? *session.standIn : session.prompts).PrefersForms();
}

bool ConfirmByTable(Session& session, const BatchWords& words,
                    const std::vector<PlannedStep>& plan) {
    auto& form = Prepare(session, words, false);
    for (const PlannedStep& step : plan) {
        form.rows.push_back({.search = step.search,
                             .destination = session.Shown(step.destination),
                             .folder = step.isThere ? "is there" : "is not there",
                             .matches = step.matches});
    }
    form.lblMain.Caption = fmt::format("{}\r\n\r\n{}", words.question, PlanSummary(plan));
    ShowTable(session);
    return form.starts;
}

void TellByTable(Session& session, const BatchWords& words, std::string_view ended,
                 const BatchOutcome& outcome) {
    auto& form = Prepare(session, words, true);
    for (const BatchStep& step : outcome.steps) {
        form.rows.push_back(
            {.search = step.search,
             .destination = session.Shown(step.file.empty() ? step.destination : step.file),
             .result = ResultText(step, words.done)});
    }
    form.lblMain.Caption = fmt::format("{}{}", ended, OutcomeSummary(outcome));
    ShowTable(session);
}

void AddTableEvents(session::EventTable& events) {
    events.On("frmBatch.cmdOK_Click", [](Session& session, const session::EventArgs&) {
        auto& form = session.forms.frmBatch;
        form.starts = !form.isDone;
        form.Hide();
    });
    events.On("frmBatch.cmdCancel_Click",
              [](Session& session, const session::EventArgs&) { session.forms.frmBatch.Hide(); });
}

} // namespace tarvix::batch
