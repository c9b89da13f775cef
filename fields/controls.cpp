#include "fields/controls.h"

#include "text/case.h"

#include <algorithm>

namespace tarvix::fields {

void NoteChange(Control& control) {
    if (control.changed_) return;
    control.changed_ = true;
    control.form_.changed_.push_back(&control);
}

Control::Control(Form& form, std::string name, ControlKind kind, int index)
    : form_(form), name_(std::move(name)), kind_(kind), index_(index) {
    if (index >= 0) name_ += "(" + std::to_string(index) + ")";
    form.controls_.push_back(this);
}

std::string_view Control::ArrayName() const {
    return std::string_view(name_).substr(0, index_ < 0 ? name_.size() : name_.find('('));
}

Control* Form::Find(std::string_view name) const {
    const auto found = std::ranges::find_if(controls_, [name](const Control* control) {
        return text::EqualNoCase(control->Name(), name);
    });
    return found == controls_.end() ? nullptr : *found;
}

std::vector<Control*> Form::TakeChanged() {
    for (Control* control : changed_) {
        control->changed_ = false;
    }
    return std::exchange(changed_, {});
}

Label::Label(Form& form, std::string name, std::string caption)
    : Control(form, std::move(name), ControlKind::kLabel), Caption(*this, std::move(caption)) {}

TextBox::TextBox(Form& form, std::string name, std::string text)
    : Control(form, std::move(name), ControlKind::kTextBox), Text(*this, std::move(text)),
      BackColor(*this, 0xFFFFFF) {}

CheckBox::CheckBox(Form& form, std::string name, std::string caption, int value, bool triState)
    : Control(form, std::move(name), ControlKind::kCheckBox), Value(*this, value),
      Caption(*this, std::move(caption)), triState_(triState) {}

OptionButton::OptionButton(Form& form, std::string name, int index, std::string caption, bool value)
    : Control(form, std::move(name), ControlKind::kOptionButton, index), Value(*this, value),
      Caption(*this, std::move(caption)) {}

OptionGroup::OptionGroup(Form& form, const std::string& name,
                         const std::vector<std::string>& captions, int chosen) {
    for (int i = 0; i < static_cast<int>(captions.size()); ++i) {
        buttons_.push_back(std::make_unique<OptionButton>(
            form, name, i, captions[static_cast<std::size_t>(i)], i == chosen));
    }
}

int OptionGroup::Chosen() const {
    for (int i = 0; i < Count(); ++i) {
        if ((*this)[i].Value) return i;
    }
    return -1;
}

void OptionGroup::Choose(int index) {
    for (int i = 0; i < Count(); ++i) {
        (*this)[i].Value = i == index;
    }
}

void OptionGroup::SetEnabled(bool enabled) {
    for (auto& button : buttons_) {
        button->Enabled = enabled;
    }
}

ComboBox::ComboBox(Form& form, std::string name, bool editable)
    : Control(form, std::move(name), ControlKind::kComboBox), Text(*this, ""), editable_(editable) {
}

void ComboBox::AddItem(std::string text, int data) {
    InsertItem(items_.size(), std::move(text), data);
}

void ComboBox::InsertItem(std::size_t position, std::string text, int data) {
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(position),
                  ComboItem{std::move(text), data});
    NoteChange(*this);
}

void ComboBox::RemoveItem(std::size_t position) {
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(position));
    NoteChange(*this);
}

void ComboBox::ClearItems() {
    items_.clear();
    NoteChange(*this);
}

int ComboBox::ChosenData() const {
    const auto found = std::ranges::find(items_, Text.Get(), &ComboItem::text);
    return found == items_.end() ? 0 : found->data;
}

CommandButton::CommandButton(Form& form, std::string name, std::string caption, bool visible)
    : Control(form, std::move(name), ControlKind::kCommandButton),
      Caption(*this, std::move(caption)) {
    Visible = visible;
}

MenuEntry::MenuEntry(Form& form, std::string name, std::string caption, int index)
    : Control(form, std::move(name), ControlKind::kMenuEntry, index),
      Caption(*this, std::move(caption)), Checked(*this, false) {}

Frame::Frame(Form& form, std::string name, std::string caption, bool visible)
    : Control(form, std::move(name), ControlKind::kFrame), Caption(*this, std::move(caption)) {
    Visible = visible;
}

DatePicker::DatePicker(Form& form, std::string name, bool isTime)
    : Control(form, std::move(name), ControlKind::kDatePicker), Text(*this, ""), isTime_(isTime) {}

ProgressBar::ProgressBar(Form& form, std::string name)
    : Control(form, std::move(name), ControlKind::kProgressBar), Value(*this, 0), Max(*this, 0) {}

ListView::ListView(Form& form, std::string name)
    : Control(form, std::move(name), ControlKind::kListView), Sorted(*this, true),
      SortKey(*this, 0), SortOrder(*this, SortDirection::kAscending), Tip(*this, "") {}

ListBox::ListBox(Form& form, std::string name, bool multiple)
    : Control(form, std::move(name), ControlKind::kListBox), Header(*this, ""),
      multiple_(multiple) {}

std::string ListBox::ValueText() const {
    std::string result;
    for (std::size_t i = 0; i < items_.size(); ++i) {
        if (selected_[i]) result.append(items_[i]).append("\r\n");
    }
    return result;
}

void ListBox::SetItems(std::vector<std::string> items) {
    std::vector<bool> selected(items.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        const auto old = std::ranges::find(items_, items[i]);
        selected[i] =
            old != items_.end() && selected_[static_cast<std::size_t>(old - items_.begin())];
    }
    items_ = std::move(items);
    selected_ = std::move(selected);
    NoteChange(*this);
}

void ListBox::AddItem(std::string item) {
    items_.push_back(std::move(item));
    selected_.push_back(false);
    NoteChange(*this);
}

void ListBox::Select(std::size_t position, bool selected) {
    if (!multiple_) selected_.assign(items_.size(), false);
    selected_[position] = selected;
    NoteChange(*this);
}

void ListBox::SelectNone() {
    selected_.assign(items_.size(), false);
    NoteChange(*this);
}

} // namespace tarvix::fields
