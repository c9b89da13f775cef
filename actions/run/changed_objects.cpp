#include "actions/run/changed_objects.h"

#include "actions/place/action_run.h"
#include "actions/place/object.h"
#include "actions/place/outcome.h"
#include "actions/run/fold_outcome.h"
#include "results/selection.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/format.h"

#include <fmt/core.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace tarvix::actions {

namespace {

using session::Session;

constexpr std::size_t kMostNamed = 10;

// What would be done, and what has been.
struct Verbs {
    std::string_view action;
    std::string_view doing;
    std::string_view done;
};
constexpr Verbs kVerbs[]{{"Delete", "recycle", "recycled"},
                         {"Rename", "rename", "renamed"},
                         {"Move", "move", "moved"},
                         {"", "copy", "copied"}};

const Verbs& VerbsOf(const ActionRequest& request) {
    std::string_view action = request.isMove ? "Move" : std::string_view(request.strAction);
    if (action.starts_with("Rename")) action = "Rename"; // by whatever source
    const auto* const verbs = std::ranges::find(kVerbs, action, &Verbs::action);
    return verbs == std::end(kVerbs) ? kVerbs[std::size(kVerbs) - 1] : *verbs;
}

std::string Question(const Session& session, const ActionRequest& request,
                     const std::vector<ChangedObject>& changed) {
    const Verbs& verbs = VerbsOf(request);
    const bool isOne = changed.size() == 1;
    const auto count = static_cast<std::int64_t>(changed.size());
    std::string text = fmt::format("{} object{} changed since the search, and {} not {}:\r\n",
                                   text::Format(count, "#,##0"), isOne ? " has" : "s have",
                                   isOne ? "was" : "were", verbs.done);
    const std::size_t named = std::min(changed.size(), kMostNamed);
    for (std::size_t i = 0; i < named; ++i)
        text +=
            fmt::format("\r\n{}", session.Shown(session.selection->strSelPath[changed[i].index]));
    if (named < changed.size()) text += "\r\n...";
    text += fmt::format("\r\n\r\nWould you like to {} what stands there by now?", verbs.doing);
    return text;
}

} // namespace

bool GoesOnWithChanged(Session& session, ActionRun& run,
                       const std::vector<ChangedObject>& changed) {
    const auto& state = session.state;
    // A deletion asks in automatic mode, too.
    const bool isAutomatic = state.options.blnAutoMode && run.request.strAction != "Delete";
    const bool isRehearsal = run.sink != nullptr && run.sink->IsRehearsal();
    const bool isAlone = isRehearsal || isAutomatic || state.blnAutoMove || state.blnAutoPlayList ||
                         state.blnRepeatDeleteEmpty;
    if (changed.empty() || isAlone || state.blnStopAction) return false;
    const bool goesOn = session.MsgBox(session::PromptId::kChangedSinceSearch,
                                       Question(session, run.request, changed)) == session::kYes;
    session::LogTimed(session, goesOn ? " User selected to go on with what has changed since the "
                                        "search."
                                      : " User selected to leave what has changed since the "
                                        "search.");
    if (goesOn) run.same = platform::Same::kName;
    return goesOn;
}

void FoldChanged(Session& session, const ActionRun& run,
                 const std::vector<ChangedObject>& changed) {
    for (const ChangedObject& object : changed) {
        FoldOutcome(session.state, run,
                    {.index = object.index,
                     .kind = OutcomeKind::kChanged,
                     .error = ChangedText(session, session.selection->strSelPath[object.index])});
    }
}

} // namespace tarvix::actions
