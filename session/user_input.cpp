#include "session/user_input.h"

#include "forms/fields/controls.h"
#include "session/session.h"
#include "text/case.h"
#include "text/dates.h"
#include "text/format.h"

#include <algorithm>

namespace tarvix::session {

namespace {

std::unexpected<std::string> Refuse(const forms::Control& control, std::string_view why) {
    return std::unexpected(control.Owner().Name() + "." + control.Name() + " " + std::string(why));
}

void ChooseOption(forms::Control& control) {
    for (forms::Control* other : control.Owner().Controls()) {
        if (other->Kind() == forms::ControlKind::kOptionButton &&
            other->ArrayName() == control.ArrayName()) {
            static_cast<forms::OptionButton*>(other)->Value = other == &control;
        }
    }
}

// A two-state box toggles by itself; a tri-state box steps in its own click routine, from the
// value that it had when the button went down.
void PrepareClick(Session& session, forms::Control& control) {
    if (control.Kind() == forms::ControlKind::kOptionButton) {
        ChooseOption(control);
    } else if (control.Kind() == forms::ControlKind::kCheckBox) {
        auto& box = static_cast<forms::CheckBox&>(control);
        if (box.IsTriState()) {
            session.Raise(control, "MouseDown");
        } else {
            box.Value = box.Value == 0 ? 1 : 0;
        }
    }
}

InputResult SetCheckBox(Session& session, forms::CheckBox& box, std::string_view value) {
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

InputResult SetOption(Session& session, forms::OptionButton& option, std::string_view value) {
    if (value != "1" && !text::EqualNoCase(value, "True")) {
        return Refuse(option, "is one of several choices: it can only be set to 1.");
    }
    if (option.Value) return {};
    ChooseOption(option);
    session.Raise(option, "Click");
    return {};
}

InputResult SetComboBox(Session& session, forms::ComboBox& box, std::string_view value) {
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
InputResult SetListBox(Session& session, forms::ListBox& list, std::string_view value) {
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

InputResult SetDatePicker(Session& session, forms::DatePicker& picker, std::string_view value) {
    const auto date = text::ParseDate(value);
    if (!date) return Refuse(picker, "takes a date or time, not \"" + std::string(value) + "\".");
    picker.Text = text::FormatDate(*date, picker.IsTime() ? "hh:mm:ss" : "yyyy/mm/dd");
    session.Raise(picker, "Change");
    return {};
}

// While a search runs or objects are recycled only the stop and the skip act.
InputResult CanActNow(Session& session, const forms::Control& control) {
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

InputResult CanUse(const forms::Control& control) {
    if (!control.Visible) return Refuse(control, "is hidden.");
    if (!control.Enabled) return Refuse(control, "is disabled.");
    return {};
}

InputResult UserClick(Session& session, forms::Control& control) {
    if (auto usable = CanActNow(session, control); !usable) return usable;
    const bool isRepeat = control.Kind() == forms::ControlKind::kOptionButton &&
                          static_cast<forms::OptionButton&>(control).Value;
    PrepareClick(session, control);
    session.Raise(control, "Click", isRepeat);
    return {};
}

InputResult UserSet(Session& session, forms::Control& control, std::string_view value) {
    using forms::ControlKind;
    if (auto usable = CanActNow(session, control); !usable) return usable;
    switch (control.Kind()) {
    case ControlKind::kCheckBox:
        return SetCheckBox(session, static_cast<forms::CheckBox&>(control), value);
    case ControlKind::kOptionButton:
        return SetOption(session, static_cast<forms::OptionButton&>(control), value);
    case ControlKind::kComboBox:
        return SetComboBox(session, static_cast<forms::ComboBox&>(control), value);
    case ControlKind::kDatePicker:
        return SetDatePicker(session, static_cast<forms::DatePicker&>(control), value);
    case ControlKind::kListBox:
        return SetListBox(session, static_cast<forms::ListBox&>(control), value);
    case ControlKind::kTextBox:
        static_cast<forms::TextBox&>(control).Text = std::string(value);
        session.Raise(control, "Change");
        return {};
    default:
        return Refuse(control, "has no value that can be set.");
    }
}

void UserLeave(Session& session, forms::Control& control) {
    session.Raise(control, "LostFocus");
}

} // namespace tarvix::session
