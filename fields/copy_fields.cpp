#include "fields/copy_fields.h"

#include "fields/controls.h"

#include <algorithm>

namespace tarvix::fields {

namespace {

template <class T>
const T& As(const Control& control) {
    return static_cast<const T&>(control);
}
template <class T>
T& As(Control& control) {
    return static_cast<T&>(control);
}

void CopyCombo(const ComboBox& from, ComboBox& to) {
    to.ClearItems();
    for (const ComboItem& item : from.Items()) {
        to.AddItem(item.text, item.data);
    }
    to.Text = from.Text.Get();
}

void CopyList(const ListBox& from, ListBox& to) {
    to.SetItems(from.Items());
    for (std::size_t i = 0; i < from.Items().size(); ++i) {
        if (from.IsSelected(i)) to.Select(i, true);
    }
    to.Header = from.Header.Get();
}

void CopyValue(const Control& from, Control& to) {
    switch (from.Kind()) {
    case ControlKind::kLabel:
        As<Label>(to).Caption = As<Label>(from).Caption.Get();
        break;
    case ControlKind::kTextBox:
        As<TextBox>(to).Text = As<TextBox>(from).Text.Get();
        break;
    case ControlKind::kCheckBox:
        As<CheckBox>(to).Value = As<CheckBox>(from).Value.Get();
        break;
    case ControlKind::kOptionButton:
        As<OptionButton>(to).Value = As<OptionButton>(from).Value.Get();
        break;
    case ControlKind::kComboBox:
        CopyCombo(As<ComboBox>(from), As<ComboBox>(to));
        break;
    case ControlKind::kListBox:
        CopyList(As<ListBox>(from), As<ListBox>(to));
        break;
    case ControlKind::kDatePicker:
        As<DatePicker>(to).Text = As<DatePicker>(from).Text.Get();
        break;
    default:
        break;
    }
}

} // namespace

void CopyFields(const Form& from, Form& to) {
    const auto& sources = from.Controls();
    const auto& targets = to.Controls();
    for (std::size_t i = 0; i < std::min(sources.size(), targets.size()); ++i) {
        CopyValue(*sources[i], *targets[i]);
        targets[i]->Visible = sources[i]->Visible.Get();
        targets[i]->Enabled = sources[i]->Enabled.Get();
    }
}

} // namespace tarvix::fields
