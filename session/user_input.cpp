#include "session/user_input.h"

#include "fields/controls.h"
#include "session/session.h"
#include "text/case.h"
#include "text/dates.h"
#include "text/format.h"

#include <algorithm>

namespace tarvix::session {

namespace {

std::unexpected<std::string> Refuse(const fields::Control& control, std::string_view why) {
    return std::unexpected(control.Owner().Name() + "." + control.Name() + " " + std::string(why));
}

void ChooseOption(fields::Control& control) {
    for (fields::Control* other : control.Owner().Controls()) {
        if (other->Kind() == fields::ControlKind::kOptionButton &&
            other->ArrayName() == control.ArrayName()) {
            static_cast<fields::OptionButton*>(other)->Value = other == &control;
        }
    }
}

// A two-state box toggles by itself; a tri-state box steps in its own click routine, from the
// value that it had when the button went down.
void PrepareClick(Session& session, fields::Control& control) {
    if (control.Kind() == fields::ControlKind::kOptionButton) {
        ChooseOption(control);
    } else if (control.Kind() == fields::ControlKind::kCheckBox) {
        auto& box = static_cast<fields::CheckBox&>(control);
        if (box.IsTriState()) {
            session.Raise(control, "MouseDown");
        } else {
            box.Value = box.Value == 0 ? 1 : 0;
        }
    }
}

InputResult SetCheckBox(Session& session, fields::CheckBox& box, std::string_view value) {
    const int highest = box.IsTriState() ? 2 : 1;
    if (value.size() != 1 || value[0] < '0' || value[0] > '0' + highest) {
        return Refuse(box, highest == 2 ? "takes 0, 1 or 2." : "takes 0 or 1.");
    }
    const int wanted = value[0] - '0';
    if (box.Value == wanted) return {};
    box.Value = wanted;
    session.Raise(box, box.IsTriState() ? "Change" : "Click");
    return {};
}

InputResult SetOption(Session& session, fields::OptionButton& option, std::string_view value) {
    if (value != "1" && !text::EqualNoCase(value, "True")) {
        return Refuse(option, "is one of several choices: it can only be set to 1.");
    }
    if (option.Value) return {};
    ChooseOption(option);
    session.Raise(option, "Click");
    return {};
}

InputResult SetComboBox(Session& session, fields::ComboBox& box, std::string_view value) {
    std::string entered(value);
    if (!box.IsEditable()) {
        bool known = false;
        for (const auto& item : box.Items()) {
            if (!text::EqualNoCase(item.text, value)) continue;
            entered = item.text;
            known = true;
        }
        if (!known) return Refuse(box, "has no entry \"" + std::string(value) + "\".");
    }
    box.Text = entered;
    session.Raise(box, "Change");
    return {};
}

// Selects the line of that text, or turns it where several may be selected.
InputResult SetListBox(Session& session, fields::ListBox& list, std::string_view value) {
    const auto& items = list.Items();
    const auto found = std::ranges::find_if(
        items, [value](const std::string& item) { return text::EqualNoCase(item, value); });
    if (found == items.end()) return Refuse(list, "has no line \"" + std::string(value) + "\".");
    const auto position = static_cast<std::size_t>(found - items.begin());
    list.Select(position, !list.IsMultiple() || !list.IsSelected(position));
    EventArgs args{static_cast<int>(position)};
    session.events.Raise(session, list.Owner().Name() + "." + list.Name() + "_Click", args);
    return {};
}

InputResult SetDatePicker(Session& session, fields::DatePicker& picker, std::string_view value) {
    const auto date = text::ParseDate(value);
    if (!date) return Refuse(picker, "takes a date or time, not \"" + std::string(value) + "\".");
    picker.Text = text::FormatDate(*date, picker.IsTime() ? "hh:mm:ss" : "yyyy/mm/dd");
    session.Raise(picker, "Change");
    return {};
}

// While a search runs or objects are recycled only the stop and the skip act.
InputResult CanActNow(Session& session, const fields::Control& control) {
    const auto& form = session.frmSearch;
    const bool isSearchForm = &control.Owner() == &form;
    if ((session.state.blnSearching || session.state.blnRecycling) && isSearchForm &&
        &control != &form.cmdStop && &control != &form.cmdNext) {
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

InputResult UserClick(Session& session, fields::Control& control) {
    if (auto usable = CanActNow(session, control); !usable) return usable;
    const bool isRepeat = control.Kind() == fields::ControlKind::kOptionButton &&
                          static_cast<fields::OptionButton&>(control).Value;
    PrepareClick(session, control);
    session.Raise(control, "Click", isRepeat);
    return {};
}

InputResult UserSet(Session& session, fields::Control& control, std::string_view value) {
    using fields::ControlKind;
    if (auto usable = CanActNow(session, control); !usable) return usable;
    switch (control.Kind()) {
    case ControlKind::kCheckBox:
        return SetCheckBox(session, static_cast<fields::CheckBox&>(control), value);
    case ControlKind::kOptionButton:
        return SetOption(session, static_cast<fields::OptionButton&>(control), value);
    case ControlKind::kComboBox:
        return SetComboBox(session, static_cast<fields::ComboBox&>(control), value);
    case ControlKind::kDatePicker:
        return SetDatePicker(session, static_cast<fields::DatePicker&>(control), value);
    case ControlKind::kListBox:
        return SetListBox(session, static_cast<fields::ListBox&>(control), value);
    case ControlKind::kTextBox:
        static_cast<fields::TextBox&>(control).Text = std::string(value);
        session.Raise(control, "Change");
        return {};
    default:
        return Refuse(control, "has no value that can be set.");
    }
}

void UserLeave(Session& session, fields::Control& control) {
    session.Raise(control, "LostFocus");
}

} // namespace tarvix::session
