#include "actions/place/engine.h"

#include "actions/place/action_run.h"
#include "actions/place/outcome.h"
#include "actions/place/placing.h"
#include "actions/place/plain_attributes.h"
#include "actions/place/system_hidden.h"
#include "platform/names.h"
#include "session/attempt.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <utility>

namespace tarvix::actions {

using session::Session;

namespace {

// Whether a new path is a name in the folder that the object lies in.
bool StaysInFolder(platform::FileSystem& files, const Job& job) {
    const std::string_view folder = text::GetParentFolderName(job.place.path);
    if (!platform::CanBeName(text::FolderOwnName(job.place.path))) return false;
    const std::string_view listed = text::GetParentFolderName(job.object.path);
    const std::string_view actual = text::GetParentFolderName(job.object.TruePath());
    if (folder == listed || folder == actual) return true;
    // It may be spelled otherwise, as where a path had to be made shorter.
    const auto there = files.TruePath(folder);
    const auto here = files.TruePath(actual);
    return there && here && *there == *here;
}

Outcome RefuseToLeave(Session& session, const Job& job) {
    const session::ErrorContext context{.routine = "PlaceObject",
                                        .moduleName = "frmDialog",
                                        .object = job.object.path,
                                        .path = job.object.path,
                                        .searchOrDestination = job.place.path,
                                        .objectType = job.object.isFile
                                                          ? session::ObjectType::kFile
                                                          : session::ObjectType::kFolder};
    const auto refused = session::Attempt(session, context, [&]() -> platform::Result<void> {
        return platform::Failure(platform::kPathFileAccess,
                                 fmt::format("A rename can't give {} another folder: {}.",
                                             session.Shown(job.object.path),
                                             session.Shown(job.place.path)));
    });
    return Unread(session, refused.result.error());
}

} // namespace

bool IsCleanDestination(std::string_view path, bool isRename) {
    const std::string_view own = text::FolderOwnName(path);
    const std::string_view above = text::GetParentFolderName(path);
    return !own.empty() && text::Trim(own).size() == own.size() &&
           above.size() + 1 + own.size() == path.size() &&
           (isRename || text::IsCleanPath(above, true));
}

std::string CleanedDestination(std::string path, bool isRename) {
    if (IsCleanDestination(path, isRename)) return path;
    const std::string_view own = text::FolderOwnName(path);
    const std::string_view name = text::Trim(own);
    const std::string parent = text::ParentFolder(path);
    return text::JoinPath(isRename ? parent : text::CleanSpacesInPath(parent, true),
                          name.empty() ? own : name);
}

std::uint32_t CombineAttributes(std::uint32_t a, std::uint32_t b) {
    return (a | b) & kCarried;
}

Outcome Unread(const Session& session, const platform::PlatformError& error) {
    Outcome outcome;
    outcome.kind = error.number == platform::kChangedSinceSearch ? OutcomeKind::kChanged
                                                                 : OutcomeKind::kFailed;
    outcome.errorNumber = error.number;
    outcome.error = session.Shown(error);
    return outcome;
}

Outcome PlaceObject(Session& session, ActionRun& run, Job job) {
    if (job.verb == Verb::kRename && !StaysInFolder(session.files(), job)) {
        return RefuseToLeave(session, job);
    }
    return Placing(session, run, std::move(job)).Run();
}

Outcome OverWriteDuplicate(Session& session, ActionRun& run, const Object& object,
                           const std::string& destination) {
    if (destination == object.path) return {};
    Outcome outcome = PlaceObject(session, run,
                                  {.object = object,
                                   .place = {destination, nullptr},
                                   .verb = Verb::kCopy,
                                   .overwrites = true});
    if (outcome.kind == OutcomeKind::kCopied) outcome.kind = OutcomeKind::kOverwrote;
    return outcome;
}

Outcome ReplaceDuplicate(Session& session, ActionRun& run, const Object& object,
                         const std::string& destination, std::function<bool()> makeWay) {
    Outcome outcome = PlaceObject(session, run,
                                  {.object = object,
                                   .place = {destination, nullptr},
                                   .verb = Verb::kCopy,
                                   .makeWay = std::move(makeWay)});
    if (outcome.kind == OutcomeKind::kCopied) outcome.kind = OutcomeKind::kReplaced;
    return outcome;
}

Outcome PerformMoveOrCopy(Session& session, ActionRun& run, const Object& object,
                          platform::FreePlace place) {
    Protection found = CheckSystemHidden(session, run, object, false);
    if (!found.look) return Unread(session, found.look.error());
    const Verb verb = run.request.isMove && !found.isProtected ? Verb::kMove : Verb::kCopy;
    return PlaceObject(session, run,
                       {.object = object,
                        .place = std::move(place),
                        .verb = verb,
                        .wasFree = true,
                        .look = std::move(*found.look)});
}

} // namespace tarvix::actions
