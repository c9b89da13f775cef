#include "actions/sources/new_names.h"

#include "actions/run/action_progress.h"
#include "platform/names.h"
#include "results/selection.h"
#include "session/session.h"

#include <fmt/core.h>

namespace tarvix::actions {

void BeginRenaming(session::Session& session) {
    session.state.lastAction = {};
    session.state.lastAction.wanted = session.selection->lngSelTop + 1;
    session.state.blnStopAction = false;
}

bool ForEachSelected(session::Session& session, const std::function<void(std::size_t)>& take) {
    const std::int64_t count = session.selection->lngSelTop + 1;
    ActionProgress progress(session, count, 0);
    for (std::int64_t index = 0; index < count; ++index) {
        session.Yield();
        take(static_cast<std::size_t>(index));
        const auto& state = session.state;
        if (state.blnStopAction || state.bytPathChoice == session::kPathCancel) return false;
        progress.Step();
    }
    return true;
}

std::string WithTextBefore(std::string_view text, std::string_view name) {
    return fmt::format("{} {}", platform::PieceToDrive(text), name);
}

} // namespace tarvix::actions
