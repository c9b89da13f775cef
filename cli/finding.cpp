#include "cli/finding.h"

#include "cli/fill_criteria.h"
#include "cli/messages.h"

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

int Finding::Search(results::Program& program, const Criteria& criteria,
                    const std::vector<std::string>& answers) {
    auto& session = program.Session();
    prompts_.BeginRequest();
    const auto filled = FillCriteria(session, scripted_, criteria, locations_);
    if (!filled) {
        Complain(host_, filled.error());
        return kBadRequest;
    }
    for (const std::string& answer : answers)
        scripted_.Queue(answer);
    const Watch watch(host_, session);
    if (const auto clicked = session::UserClick(session, session.frmSearch.cmdSearch); !clicked) {
        Complain(host_, clicked.error());
        return kBadRequest;
    }
    if (session.state.blnErrorPreparingForSearch) return kBadRequest;
    return session.state.blnStopClicked || prompts_.SkippedObjects() > 0 ? kSomeFailed : kDone;
}

} // namespace tarvix::cli
