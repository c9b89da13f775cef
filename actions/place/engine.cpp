#include "actions/place/engine.h"

#include "actions/place/action_run.h"
#include "actions/place/outcome.h"
#include "actions/place/placing.h"
#include "actions/place/plain_attributes.h"
#include "actions/place/system_hidden.h"
#include "text/characters.h"
#include "text/paths.h"

#include <utility>

namespace tarvix::actions {

using session::Session;

std::string CleanedDestination(const std::string& path, bool isRename) {
    const std::string_view own = text::FolderOwnName(path);
    const std::string_view name = text::Trim(own);
    const std::string_view above = text::GetParentFolderName(path);
    const bool isPlain = name.size() == own.size() && !own.empty() &&
                         above.size() + 1 + own.size() == path.size() &&
                         (isRename || text::IsCleanPath(above, true));
    if (isPlain) return path;
    const std::string parent = text::ParentFolder(path);
    return text::JoinPath(isRename ? parent : text::CleanSpacesInPath(parent, true),
                          name.empty() ? own : name);
}

std::uint32_t CombineAttributes(std::uint32_t a, std::uint32_t b) {
    return (a | b) & kCarried;
}

Outcome PlaceObject(Session& session, ActionRun& run, Job job) {
    return Placing(session, run, std::move(job)).Run();
}

Outcome OverWriteDuplicate(Session& session, ActionRun& run, const Object& object,
                           const std::string& destination) {
    if (destination == object.path) return {};
    Outcome outcome = PlaceObject(
        session, run,
        {.object = object, .destination = destination, .verb = Verb::kCopy, .overwrites = true});
    if (outcome.kind == OutcomeKind::kCopied) outcome.kind = OutcomeKind::kOverwrote;
    return outcome;
}

Outcome ReplaceDuplicate(Session& session, ActionRun& run, const Object& object,
                         const std::string& destination, std::function<bool()> makeWay) {
    Outcome outcome = PlaceObject(session, run,
                                  {.object = object,
                                   .destination = destination,
                                   .verb = Verb::kCopy,
                                   .makeWay = std::move(makeWay)});
    if (outcome.kind == OutcomeKind::kCopied) outcome.kind = OutcomeKind::kReplaced;
    return outcome;
}

Outcome PerformMoveOrCopy(Session& session, ActionRun& run, const Object& object,
                          platform::FreePlace place) {
    Object known = object;
    const bool isProtected = CheckSystemHidden(session, run, object, false, &known.look);
    const Verb verb = run.request.isMove && !isProtected ? Verb::kMove : Verb::kCopy;
    std::string destination = place.path;
    return PlaceObject(session, run,
                       {.object = known,
                        .destination = std::move(destination),
                        .verb = verb,
                        .place = std::move(place)});
}

} // namespace tarvix::actions
