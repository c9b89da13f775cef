#include "actions/place/overlap.h"

#include "actions/place/outcome.h"
#include "platform/file_system.h"
#include "results/selection.h"
#include "session/attempt.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/tell.h"

#include <optional>
#include <string>

namespace tarvix::actions {

namespace {

using session::Session;

enum class Overlap { kNone, kSame, kOneInOther };

std::size_t IndexInHand(const Session& session) {
    return static_cast<std::size_t>(session.state.action.lngIndex);
}

void TellOneInOther(Session& session) {
    session::TellOrLog(session, session::PromptId::kReplaceOverlaps,
                       " User attempted to replace object: \r\n\r\n" +
                           session.state.action.strDestination + "\r\n\r\n by object: \r\n\r\n" +
                           session.selection->strSelPath[IndexInHand(session)] +
                           "\r\n\r\n One of them lies in the other, so that both would go to the "
                           "recycle bin. Nothing was done.");
}

platform::Result<Overlap> OverlapOf(platform::FileSystem& files, const std::string& actual,
                                    const std::string& destination, bool bothFiles) {
    const auto isHeld = files.Holds(destination, actual);
    if (!isHeld) return std::unexpected(isHeld.error());
    if (bothFiles) return *isHeld ? Overlap::kSame : Overlap::kNone;
    const auto holds = files.Holds(actual, destination);
    if (!holds) return std::unexpected(holds.error());
    if (*isHeld && *holds) return Overlap::kSame;
    return *isHeld || *holds ? Overlap::kOneInOther : Overlap::kNone;
}

// Nothing when it can't be found out.
std::optional<Overlap> OverlapInHand(Session& session) {
    const auto& tables = *session.selection;
    auto& action = session.state.action;
    const std::size_t index = IndexInHand(session);
    const bool isFile = tables.blnSelIsFile[index];
    const session::ErrorContext context{.routine = "RefusesOverlap",
                                        .moduleName = "frmDialog",
                                        .object = tables.strSelPath[index],
                                        .path = tables.strSelActualPath[index],
                                        .searchOrDestination = action.strDestination,
                                        .objectType = isFile ? session::ObjectType::kFile
                                                             : session::ObjectType::kFolder};
    const auto overlap = session::Attempt(session, context, [&] {
        return OverlapOf(session.files(), tables.strSelActualPath[index], action.strDestination,
                         isFile && action.blnDestIsFile);
    });
    if (overlap) return *overlap.result;
    action.blnErrorOccurred = true;
    session.state.lastAction.errors.push_back(overlap.result.error().description);
    return {};
}

} // namespace

void TellOntoItself(Session& session) {
    session::TellOrLog(session, session::PromptId::kWriteOverlaps,
                       " User attempted to write object: \r\n\r\n" +
                           session.selection->strSelPath[IndexInHand(session)] +
                           "\r\n\r\n upon itself or to its own subfolder as: \r\n\r\n" +
                           session.state.action.strDestination);
}

bool RefusesOverlap(Session& session, DuplicateUse use, Outcome& outcome) {
    const auto overlap = OverlapInHand(session);
    outcome.kind = OutcomeKind::kLeftAlone;
    if (!overlap) return true;
    const bool isRefused = *overlap == Overlap::kSame ||
                           (*overlap == Overlap::kOneInOther && use == DuplicateUse::kReplace);
    if (!isRefused) return false;
    outcome.kind = OutcomeKind::kOntoItself;
    if (*overlap == Overlap::kSame) {
        TellOntoItself(session);
    } else {
        TellOneInOther(session);
    }
    return true;
}

} // namespace tarvix::actions
