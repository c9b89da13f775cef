#include "actions/place/overlap.h"

#include "actions/place/duplicate.h"
#include "actions/place/object.h"
#include "actions/place/outcome.h"
#include "platform/file_system.h"
#include "platform/try.h"
#include "session/attempt.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/tell.h"
#include "session/wordings.h"
#include "text/case.h"

#include <fmt/core.h>

namespace tarvix::actions {

namespace {

using session::Session;

enum class Overlap { kNone, kSame, kOneInOther };

void TellOneInOther(Session& session, const Clash& clash) {
    session::TellOrLog(
        session, session::PromptId::kReplaceOverlaps,
        fmt::format(" User attempted to replace object: \r\n\r\n{}\r\n\r\n by object: "
                    "\r\n\r\n{}\r\n\r\n One of them lies in the other, so that both would "
                    "go to the {}. Nothing was done.",
                    session.Shown(clash.destination), session.Shown(clash.object.path),
                    session::Worded(session, session::Wording::kBin)));
}

platform::Result<Overlap> OverlapOf(platform::FileSystem& files, const Clash& clash) {
    const std::string_view actual = clash.object.actual;
    TX_TRY_ASSIGN(const bool isHeld, files.Holds(clash.destination, actual));
    if (clash.object.isFile && clash.there.isFile) return isHeld ? Overlap::kSame : Overlap::kNone;
    TX_TRY_ASSIGN(const bool holds, files.Holds(actual, clash.destination));
    if (isHeld && holds) return Overlap::kSame;
    return isHeld || holds ? Overlap::kOneInOther : Overlap::kNone;
}

// Whether it is `path` itself, or something below it.
bool LiesIn(std::string_view destination, std::string_view path) {
    return text::EqualNoCase(destination, path) ||
           (text::StartsWithNoCase(destination, path) &&
            text::StartsWithNoCase(destination, fmt::format("{}\\", path)));
}

} // namespace

bool IsOntoItself(const Object& object, std::string_view destination) {
    return LiesIn(destination, object.path) ||
           (object.actual != object.path && LiesIn(destination, object.actual));
}

void TellOntoItself(Session& session, const Object& object, std::string_view destination) {
    session::TellOrLog(session, session::PromptId::kWriteOverlaps,
                       fmt::format(" User attempted to write object: \r\n\r\n{}\r\n\r\n upon "
                                   "itself or to its own subfolder as: \r\n\r\n{}",
                                   session.Shown(object.path), session.Shown(destination)));
}

std::optional<Outcome> RefusesOverlap(Session& session, const Clash& clash, DuplicateUse use) {
    const Object& object = clash.object;
    const session::ErrorContext context{.routine = "RefusesOverlap",
                                        .moduleName = "frmDialog",
                                        .object = object.path,
                                        .path = object.actual,
                                        .searchOrDestination = clash.destination,
                                        .objectType = object.isFile ? session::ObjectType::kFile
                                                                    : session::ObjectType::kFolder};
    const auto overlap =
        session::Attempt(session, context, [&] { return OverlapOf(session.files(), clash); });
    Outcome outcome;
    if (!overlap) {
        outcome.kind = OutcomeKind::kFailed;
        outcome.errorNumber = overlap.result.error().number;
        outcome.error = session.Shown(overlap.result.error());
        return outcome;
    }
    const bool isSame = *overlap.result == Overlap::kSame;
    const bool isRefused =
        isSame || (*overlap.result == Overlap::kOneInOther && use == DuplicateUse::kReplace);
    if (!isRefused) return std::nullopt;
    if (isSame) {
        TellOntoItself(session, object, clash.destination);
    } else {
        TellOneInOther(session, clash);
    }
    outcome.kind = OutcomeKind::kOntoItself;
    return outcome;
}

} // namespace tarvix::actions
