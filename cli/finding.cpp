#include "cli/finding.h"

#include "cli/fill_criteria.h"
#include "cli/messages.h"
#include "cli/summary.h"
#include "results/selection.h"
#include "session/user_input.h"
#include "text/case.h"

#include <fmt/core.h>

namespace tarvix::cli {

Finding::Finding(Host& host, const platform::Platform& machine)
    : host_(host), paths_(machine, host.currentFolder) {
    scripted_.SetPaths(machine.paths);
}

bool Finding::CheckLocations(const Criteria& criteria) {
    auto locations = paths_.Locations(criteria.locations);
    if (!locations) {
        Complain(host_, locations.error());
        return false;
    }
    locations_ = std::move(*locations);
    return true;
}

bool Finding::Fill(session::Session& session, const Criteria& criteria) {
    prompts_.BeginRequest();
    const auto filled = FillCriteria(session, scripted_, criteria, locations_);
    if (!filled) Complain(host_, filled.error());
    return filled.has_value();
}

int Finding::Search(results::Program& program, const Criteria& criteria,
                    const std::vector<std::string>& answers) {
    auto& session = program.Session();
    if (!Fill(session, criteria)) return kBadRequest;
    for (const std::string& answer : answers)
        scripted_.Queue(answer);
    const Watch watch(host_, session);
    if (!Click(session, session.frmSearch.cmdSearch)) return kBadRequest;
    if (session.state.blnErrorPreparingForSearch) return kBadRequest;
    return session.state.blnStopClicked || prompts_.SkippedObjects() > 0 ? kSomeFailed : kDone;
}

int Finding::ActOnAll(session::Session& session, int searchCode, fields::Control& button,
                      std::string_view done, bool isRehearsal,
                      const std::function<int(std::int64_t)>& after) {
    if (session.state.blnStopClicked || host_.interrupted() != 0) {
        const std::string participle = done == "Wrote" ? "written" : text::Lower(done);
        Complain(host_, fmt::format("The search was cut short, so nothing was {}.", participle));
        return kSomeFailed;
    }
    if (session.rows->Count() == 0) {
        if (!isRehearsal) (void)Summarize(host_, done, {}, 0);
        return searchCode;
    }
    const Watch watch(host_, session);
    const std::int64_t selected = results::SelectAllRows(session);
    if (!Click(session, button)) return kBadRequest;
    prompts_.TellRepeated();
    const int code = after(selected);
    return code == kDone ? searchCode : code;
}

bool Finding::Click(session::Session& session, fields::Control& button) {
    const auto clicked = session::UserClick(session, button);
    if (!clicked) Complain(host_, clicked.error());
    return clicked.has_value();
}

void SortRows(session::Session& session, const SortRequest& sort) {
    constexpr int kMostClicks = 2;
    const auto& list = session.frmSearch.lstMain;
    const auto wanted =
        sort.descending ? fields::SortDirection::kDescending : fields::SortDirection::kAscending;
    const auto isWanted = [&] {
        return list.SortKey.Get() == sort.column && list.SortOrder.Get() == wanted;
    };
    for (int click = 0; click < kMostClicks && !isWanted(); ++click)
        session.events.Raise(session, "frmSearch.lstMain_ColumnClick", {sort.column});
}

} // namespace tarvix::cli
