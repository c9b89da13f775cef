#include "actions/request/outcome_page.h"

#include "actions/request/put_back.h"
#include "platform/applications.h"
#include "results/outcome_groups.h"
#include "results/outcome_list.h"
#include "results/result_list.h"
#include "results/row_marks.h"
#include "results/selection.h"
#include "session/lifecycle_events.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/format.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace tarvix::actions {

namespace {

using results::OutcomeList;
using results::OutcomeMark;
using session::Session;

constexpr std::size_t kMostShown = 200; // objects that a file manager is asked to show at once

// The marks that only say how an object went as asked.
constexpr std::array kHows{OutcomeMark::kNewName, OutcomeMark::kReplaced};
constexpr std::array kUsual{OutcomeMark::kCopied, OutcomeMark::kMoved, OutcomeMark::kRenamed,
                            OutcomeMark::kRecycled, OutcomeMark::kPutBack};

std::string Figure(std::int64_t count) {
    return text::Format(count, "#,##0");
}

bool Holds(const auto& marks, OutcomeMark mark) {
    return std::ranges::find(marks, mark) != marks.end();
}

std::int64_t Sum(const OutcomeList& list, const auto& marks) {
    std::int64_t sum = 0;
    for (const OutcomeMark mark : marks)
        sum += list.CountOf(mark);
    return sum;
}

// "12 failed, 3 not reached", of the marks that pass.
std::string Listed(const OutcomeList& list, auto passes) {
    std::string told;
    for (std::size_t i = 0; i < results::kOutcomeMarks; ++i) {
        const auto mark = static_cast<OutcomeMark>(i);
        const std::int64_t count = list.CountOf(mark);
        if (count == 0 || !passes(mark)) continue;
        const bool isPlural = mark == OutcomeMark::kSkipped && count != 1;
        told += fmt::format("{}{} {}{}", told.empty() ? "" : ", ", Figure(count),
                            results::MarkText(mark), isPlural ? "s" : "");
    }
    return told;
}

bool HasPlaced(const OutcomeList& list) {
    return Sum(list, kHows) + Sum(list, kUsual) - list.CountOf(OutcomeMark::kRecycled) +
               list.CountOf(OutcomeMark::kCopiedOnly) >
           0;
}

std::int64_t Troubles(const OutcomeList& list) {
    std::int64_t sum = 0;
    for (std::size_t i = 0; i < results::kOutcomeMarks; ++i) {
        const auto mark = static_cast<OutcomeMark>(i);
        if (results::IsTrouble(mark)) sum += list.CountOf(mark);
    }
    return sum;
}

// "Put back 35 of 37 objects, 2 failed, 1,963 left in the trash."
std::string PutBackHeadline(const OutcomeList& list) {
    const std::int64_t left = list.CountOf(OutcomeMark::kRecycled);
    const std::int64_t wanted = static_cast<std::int64_t>(list.Count()) - left;
    std::string told =
        fmt::format("Put back {} of {} {}", Figure(list.CountOf(OutcomeMark::kPutBack)),
                    Figure(wanted), wanted == 1 ? "object" : "objects");
    const std::string others = Listed(list, [](OutcomeMark mark) { return !Holds(kUsual, mark); });
    if (!others.empty()) told += fmt::format(", {}", others);
    if (left > 0) told += fmt::format(", {} left in the trash", Figure(left));
    told += '.';
    return told;
}

// A second click goes back to the list.
void OpenPage(Session& session) {
    auto& page = session.forms.frmOutcome;
    if (page.IsShown() && session.rows->Count() > 0) return page.Hide();
    if (session.outcomes != nullptr && session.outcomes->Count() > 0) {
        page.Show();
    }
}

void ClosePage(Session& session) {
    session.forms.frmOutcome.Hide();
}

// The chosen objects that stand somewhere; with none chosen, the first that was placed.
std::vector<std::string> PathsToShow(Session& session) {
    const OutcomeList& list = *session.outcomes;
    std::vector<std::string> paths;
    const auto add = [&](std::size_t at) {
        std::string path = at < list.Count() ? list.Now(at) : std::string();
        if (!path.empty() && paths.size() < kMostShown) paths.push_back(std::move(path));
    };
    const auto& chosen = session.forms.frmOutcome.chosen;
    for (const std::uint32_t at : chosen)
        add(at);
    for (std::size_t at = 0; chosen.empty() && paths.empty() && at < list.Count(); ++at) {
        if (list.IsPlaced(at)) add(at);
    }
    return paths;
}

void Tell(Session& session, const platform::Result<void>& done) {
    if (!done) session.MsgBox(session::PromptId::kMenuNotDone, session.Shown(done.error()));
}

void ShowThere(Session& session) {
    const auto paths = PathsToShow(session);
    if (!paths.empty()) Tell(session, session.platform.applications.ShowInFolder(paths));
}

void OpenTrash(Session& session) {
    Tell(session, session.platform.applications.ShowTrash());
}

void SearchAgain(Session& session) {
    session.events.Raise(session, lifecycle::kSearch);
}

} // namespace

OutcomeWatch::OutcomeWatch(const Session& session)
    : generation_(session.outcomes ? session.outcomes->Generation() : 0) {}

bool OutcomeWatch::HasNew(const Session& session) const {
    return session.outcomes != nullptr && session.outcomes->Count() > 0 &&
           session.outcomes->Generation() != generation_;
}

std::string OutcomeHeadline(const OutcomeList& list) {
    if (list.Action() == results::kPutBackAction) return PutBackHeadline(list);
    const bool isDelete = list.Action() == "Delete";
    const std::int64_t done = Sum(list, kHows) + Sum(list, kUsual);
    const auto all = static_cast<std::int64_t>(list.Count());
    std::string told =
        fmt::format("{} {} of {} {}", isDelete ? "Moved" : results::DoneVerb(list.Action()),
                    Figure(done), Figure(all), all == 1 ? "object" : "objects");
    if (isDelete) told += " to the trash";
    const std::string hows = Listed(list, [](OutcomeMark mark) { return Holds(kHows, mark); });
    if (!hows.empty()) told += fmt::format(" ({})", hows);
    const std::string others =
        Listed(list, [](OutcomeMark mark) { return !Holds(kHows, mark) && !Holds(kUsual, mark); });
    if (!others.empty()) told += fmt::format(", {}", others);
    told += '.';
    return told;
}

void OfferOutcome(Session& session, const OutcomeWatch& watch) {
    if (!watch.HasNew(session)) return;
    const OutcomeList& list = *session.outcomes;
    results::MarkFates(*session.rows, list);
    auto& page = session.forms.frmOutcome;
    page.lblMain.Caption = OutcomeHeadline(list);
    page.chosen.clear();
    page.cmdShowThere.Visible = HasPlaced(list);
    const bool isPutBack = list.Action() == results::kPutBackAction;
    page.cmdOpenTrash.Visible =
        isPutBack ||
        list.CountOf(OutcomeMark::kRecycled) + list.CountOf(OutcomeMark::kReplaced) > 0;
    // What isn't back has no row that could be selected.
    page.cmdSelectFailed.Visible = Troubles(list) > 0 && !isPutBack;
    ShowPutBack(session);
    auto& button = session.frmSearch.cmdOutcome;
    button.Caption = list.Action() == "Delete" || isPutBack ? page.lblMain.Caption.Get()
                                                            : std::string("Show Each Object");
    button.Visible = true;
    if (session.rows->Count() == 0) page.Show();
}

void SelectFailed(Session& session) {
    if (session.outcomes == nullptr) return;
    const OutcomeList& list = *session.outcomes;
    if (session.rows->Count() == 0) session.events.Raise(session, lifecycle::kSearch);
    results::ResultList& rows = *session.rows;
    for (std::size_t i = 0; i < rows.Count(); ++i)
        rows.At(i).selected = false;
    for (std::size_t at = 0; at < list.Count(); ++at) {
        if (!results::IsTrouble(list.MarkOf(at))) continue;
        const std::size_t row = results::RowOfOutcome(rows, list, at);
        if (row < rows.Count()) rows.At(row).selected = true;
    }
    session.forms.frmOutcome.Hide();
    results::BuildFileArray(session);
}

void AddOutcomeEvents(session::EventTable& events) {
    events.On("frmSearch.cmdOutcome_Click", OpenPage);
    events.On("frmOutcome.cmdClose_Click", ClosePage);
    events.On("frmOutcome.cmdShowThere_Click", ShowThere);
    events.On("frmOutcome.cmdOpenTrash_Click", OpenTrash);
    events.On("frmOutcome.cmdSearchAgain_Click", SearchAgain);
    events.On("frmOutcome.cmdSelectFailed_Click", SelectFailed);
    AddPutBackEvents(events);
}

} // namespace tarvix::actions
