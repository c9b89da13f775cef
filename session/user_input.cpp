#include "session/user_input.h"

#include "fields/control.h"
#include "session/input_recorder.h"
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
    if (session.recorder) session.recorder->Clicked(control);
    session.Raise(control, "MouseDown");
    const bool isRepeat = control.Press();
    session.Raise(control, "Click", isRepeat);
    return {};
}

InputResult UserSet(Session& session, fields::Control& control, std::string_view value) {
    if (auto usable = CanActNow(session, control); !usable) return usable;
    const auto entered = control.Enter(value);
    if (!entered) return Refuse(control, entered.error());
    if (session.recorder) session.recorder->Entered(control, value);
    if (entered->event.empty()) return {};
    session.events.Raise(
        session,
        fmt::format("{}.{}_{}", control.Owner().Name(), control.ArrayName(), entered->event),
        {entered->index});
    return {};
}

InputResult UserReset(Session& session, const fields::Control& control) {
    const std::string event = fmt::format("{}.ResetOption", control.Owner().Name());
    const bool hasValue = control.Kind() != fields::ControlKind::kCommandButton;
    if (hasValue && session.events.Raise(session, event, {.path = control.Name()})) return {};
    return Refuse(control, "can't be set back: it is no option.");
}

bool UserSelect(Session& session, int row) {
    if (session.recorder) session.recorder->Selected();
    return session.events.Raise(session, "frmSearch.lstMain_ItemClick", {row});
}

bool UserOpen(Session& session, int row) {
    if (session.recorder) session.recorder->Opened(row);
    return session.events.Raise(session, "frmSearch.lstMain_DblClick", {row});
}

bool UserMenu(Session& session) {
    return session.events.Raise(session, "frmSearch.lstMain_MouseUp");
}

bool UserSort(Session& session, int column) {
    if (session.recorder) session.recorder->Sorted(column);
    return session.events.Raise(session, "frmSearch.lstMain_ColumnClick", {column});
}

void UserLeave(Session& session, fields::Control& control) {
    const std::string event =
        fmt::format("{}.{}_LostFocus", control.Owner().Name(), control.ArrayName());
    if (session.recorder && session.events.Has(event)) session.recorder->Left(control);
    session.events.Raise(session, event, {control.Index()});
}

} // namespace tarvix::session
