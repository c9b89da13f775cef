#include "actions/place/object.h"

#include "actions/place/action_run.h"
#include "results/selection.h"
#include "session/session.h"

#include <fmt/core.h>

namespace tarvix::actions {

platform::Result<platform::Look> LookAt(session::Session& session, const ActionRun& run,
                                        const Object& object) {
    const platform::SeenObject seen = object.Seen(run.same);
    return object.isFile ? platform::LookAtSeenFile(session.files(), seen)
                         : platform::LookAtSeenFolder(session.files(), seen);
}

std::string ChangedText(const session::Session& session, std::string_view path) {
    return fmt::format("{} has changed since the search, and stays as it is.", session.Shown(path));
}

Object ObjectAt(const results::Selection& selection, std::size_t index) {
    return {.index = index,
            .name = selection.strSelName[index],
            .path = selection.strSelPath[index],
            .actual = selection.strSelActualPath[index],
            .relative = selection.strSelRelPath[index],
            .isFile = selection.blnSelIsFile[index],
            .sighting = index < selection.sightings.size() ? selection.sightings[index]
                                                           : platform::Sighting()};
}

} // namespace tarvix::actions
