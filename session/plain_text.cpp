#include "session/plain_text.h"

#include "session/errors.h"
#include "session/session.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>

namespace tarvix::session {

namespace {

// What a routine was to do to its object; `toPlace` leads to the destination where it belongs to
// it.
struct Work {
    std::string_view routine;
    std::string_view failed;
    std::string_view toPlace = {};
};

constexpr std::array kWorks{
    Work{"CopyObject", "could not be copied", " to"},
    Work{"MoveObject", "could not be moved", " to"},
    Work{"PlaceObject", "could not be put in its new place", ":"},
    Work{"RefusesOverlap", "could not be compared with what stands at its new place", ":"},
    Work{"ComputeDestination", "got no new place"},
    Work{"SpecialRuleConvert", "got no new place by the Special Rule"},
    Work{"RenameOnly", "could not be renamed", " as"},
    Work{"OverrideRecycleFailure", "could not be deleted"},
    Work{"OverrideRecycleFailureEntry", "could not be deleted"},
    Work{"CheckSystemHidden", "could not be looked at, so it was left alone"},
    Work{"MakeFolders", "could not be made"},
    Work{"CreateMissingFolder", "could not be made"},
    Work{"CopyToTextFile", "could not be written"},
    Work{"SaveOptionFile", "could not be saved"},
    Work{"SavePlatformFile", "could not be saved"},
    Work{"SaveSearchHistoryFile", "could not be saved"},
    Work{"SaveFolderHistoryFile2", "could not be saved"},
    Work{"OpenActionLog", "could not be begun"},
    Work{"OpenProgramErrorFile", "could not be begun"},
    Work{"CloseActionLog", "could not be written to its end"},
    Work{"CloseProgramErrorFile", "could not be written to its end"},
    Work{"mnuToolViewActionLog_Click", "could not be opened"},
    Work{"mnuToolViewAnyActionLog_Click", "could not be opened"},
    Work{"ReportActionResult", "could not be opened"},
};
constexpr Work kReading{"", "could not be read"};

const Work& WorkOf(std::string_view routine) {
    const auto* const found = std::ranges::find(kWorks, routine, &Work::routine);
    return found == kWorks.end() ? kReading : *found;
}

// The object as its whole path where the routine has it.
std::string_view ObjectOf(const ErrorContext& context) {
    const bool isUnnamed = context.object.empty() || context.object == kUnreadObject;
    const bool isWhole = context.object.find('\\') != context.object.npos;
    if (!isUnnamed && (isWhole || context.path.empty())) return context.object;
    return context.path.empty() ? context.searchOrDestination : context.path;
}

} // namespace

std::string PlainText(const Session& session, const ErrorContext& context,
                      std::string_view reason) {
    const Work& work = WorkOf(context.routine);
    const std::string object = session.Shown(ObjectOf(context));
    std::string text = fmt::format("{} {}", object.empty() ? "Something" : object, work.failed);
    if (!work.toPlace.empty() && !context.searchOrDestination.empty()) {
        text += fmt::format("{}\r\n{}", work.toPlace, session.Shown(context.searchOrDestination));
    } else {
        text += ".";
    }
    if (!reason.empty()) text += fmt::format("\r\n\r\n{}", reason);
    return text;
}

} // namespace tarvix::session
