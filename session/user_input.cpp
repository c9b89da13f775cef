#include "session/user_input.h"

#include "fields/control.h"
#include "session/session.h"

#include <fmt/core.h>

namespace tarvix::session {

namespace {

std::unexpected<std::string> Refuse(const fields::Control& control, std::string_view why) {
    return std::unexpected(fmt::format("{}.{} {}", control.Owner().Name(), control.Name(), why));
}

// While a search runs or objects are recycled only the stop and the skip act.
InputResult CanActNow(Session& session, const fields::Control& control) {
    const bool isSearchForm = &control.Owner() == &session.frmSearch;
    if ((session.state.blnSearching || session.state.blnRecycling) && isSearchForm &&
        !MayInterrupt(control)) {
        return Refuse(control, session.state.blnSearching
                                   ? "can't be used while a search runs."
                                   : "can't be used while objects are recycled.");
    }
    return CanUse(control);
}

} // namespace

InputResult CanUse(const fields::Control& control) {
    if (!control.Visible) return Refuse(control, "is hidden.");
    if (!control.Enabled) return Refuse(control, "is disabled.");
    return {};
}

bool MayInterrupt(const fields::Control& control) {
    return control.Name() == "cmdStop" || control.Name() == "cmdNext";
}

InputResult UserClick(Session& session, fields::Control& control) {
    if (auto usable = CanActNow(session, control); !usable) return usable;
    session.Raise(control, "MouseDown");
    const bool isRepeat = control.Press();
    session.Raise(control, "Click", isRepeat);
    return {};
}

InputResult UserSet(Session& session, fields::Control& control, std::string_view value) {
    if (auto usable = CanActNow(session, control); !usable) return usable;
    const auto entered = control.Enter(value);
    if (!entered) return Refuse(control, entered.error());
    if (entered->event.empty()) return {};
    session.events.Raise(
        session,
        fmt::format("{}.{}_{}", control.Owner().Name(), control.ArrayName(), entered->event),
        {entered->index});
    return {};
}

void UserLeave(Session& session, fields::Control& control) {
    session.Raise(control, "LostFocus");
}

} // namespace tarvix::session
