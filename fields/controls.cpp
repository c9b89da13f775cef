#include "fields/controls.h"

#include "text/case.h"
#include "text/dates.h"
#include "text/format.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::fields {

namespace {

constexpr std::string_view kChange = "Change";
constexpr std::string_view kClick = "Click";

// A form copies only controls of its own class, so both are of one kind.
template <class T>
const T& As(const T& /*own*/, const Control& other) {
    return static_cast<const T&>(other);
}

} // namespace

CaptionedControl::CaptionedControl(Form& form, std::string name, ControlKind kind,
                                   std::string caption, int index)
    : Control(form, std::move(name), kind, index), Caption(*this, std::move(caption)) {}

Label::Label(Form& form, std::string name, std::string caption)
    : CaptionedControl(form, std::move(name), ControlKind::kLabel, std::move(caption)) {}

void Label::CopyValue(const Control& other) {
    Caption = As(*this, other).Caption;
}

void DateLabel::SetDate(const std::optional<text::DateTime>& date) {
    date_ = date;
    Caption = date ? text::FormatDate(*date, "yyyy/mm/dd hh:mm:ss") : std::string{};
}

void DateLabel::CopyValue(const Control& other) {
    SetDate(As(*this, other).Date());
}

TextBox::TextBox(Form& form, std::string name, std::string text)
    : Control(form, std::move(name), ControlKind::kTextBox), Text(*this, std::move(text)),
      BackColor(*this, 0xFFFFFF) {}

EnterResult TextBox::Enter(std::string_view text) {
    Text = std::string(text);
    return Entered{kChange, Index()};
}

void TextBox::CopyValue(const Control& other) {
    Text = As(*this, other).Text;
}

CheckBox::CheckBox(Form& form, std::string name, std::string caption, int value, bool triState,
                   int index)
    : CaptionedControl(form, std::move(name), ControlKind::kCheckBox, std::move(caption), index),
      Value(*this, value), triState_(triState) {}

EnterResult CheckBox::Enter(std::string_view text) {
    const char highest = triState_ ? '2' : '1';
    if (text.size() != 1 || text[0] < '0' || text[0] > highest) {
        return std::unexpected(triState_ ? "takes 0, 1 or 2." : "takes 0 or 1.");
    }
    const int wanted = text[0] - '0';
    if (Value == wanted) return Entered{};
    Value = wanted;
    return Entered{triState_ ? kChange : kClick, Index()};
}

bool CheckBox::Press() {
    if (!triState_) Value = Value == 0 ? 1 : 0;
    return false;
}

void CheckBox::CopyValue(const Control& other) {
    Value = As(*this, other).Value;
}

OptionButton::OptionButton(Form& form, OptionGroup& group, std::string name, int index,
                           std::string caption, bool value)
    : CaptionedControl(form, std::move(name), ControlKind::kOptionButton, std::move(caption),
                       index),
      Value(*this, value), group_(group) {}

EnterResult OptionButton::Enter(std::string_view text) {
    if (text != "1" && !text::EqualNoCase(text, "True")) {
        return std::unexpected("is one of several choices: it can only be set to 1.");
    }
    if (Press()) return Entered{};
    return Entered{kClick, Index()};
}

bool OptionButton::Press() {
    const bool isRepeat = Value;
    group_.Choose(Index());
    return isRepeat;
}

void OptionButton::CopyValue(const Control& other) {
    Value = As(*this, other).Value;
}

OptionGroup::OptionGroup(Form& form, const std::string& name,
                         const std::vector<std::string>& captions, int chosen) {
    for (int i = 0; i < static_cast<int>(captions.size()); ++i) {
        buttons_.push_back(std::make_unique<OptionButton>(
            form, *this, name, i, captions[static_cast<std::size_t>(i)], i == chosen));
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

EnterResult ComboBox::Enter(std::string_view text) {
    if (editable_) {
        Text = std::string(text);
        return Entered{kChange, Index()};
    }
    const auto known = std::ranges::find_if(
        items_, [text](const ComboItem& item) { return text::EqualNoCase(item.text, text); });
    if (known == items_.end()) {
        return std::unexpected(fmt::format("has no entry \"{}\".", text));
    }
    Text = known->text;
    return Entered{kChange, Index()};
}

void ComboBox::CopyValue(const Control& other) {
    const ComboBox& from = As(*this, other);
    items_ = from.items_;
    NoteChange(*this);
    Text = from.Text;
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
    : CaptionedControl(form, std::move(name), ControlKind::kCommandButton, std::move(caption)) {
    Visible = visible;
}

MenuEntry::MenuEntry(Form& form, std::string name, std::string caption, int index)
    : CaptionedControl(form, std::move(name), ControlKind::kMenuEntry, std::move(caption), index),
      Checked(*this, false) {}

Frame::Frame(Form& form, std::string name, std::string caption, bool visible)
    : CaptionedControl(form, std::move(name), ControlKind::kFrame, std::move(caption)) {
    Visible = visible;
}

DatePicker::DatePicker(Form& form, std::string name, bool isTime)
    : Control(form, std::move(name), ControlKind::kDatePicker), Text(*this, ""), isTime_(isTime) {}

EnterResult DatePicker::Enter(std::string_view text) {
    const auto date = text::ParseDate(text);
    if (!date) return std::unexpected(fmt::format("takes a date or time, not \"{}\".", text));
    Text = text::FormatDate(*date, isTime_ ? "hh:mm:ss" : "yyyy/mm/dd");
    return Entered{kChange, Index()};
}

void DatePicker::CopyValue(const Control& other) {
    Text = As(*this, other).Text;
}

ProgressBar::ProgressBar(Form& form, std::string name)
    : Control(form, std::move(name), ControlKind::kProgressBar), Value(*this, 0), Max(*this, 0) {}

Timer::Timer(Form& form, std::string name)
    : Control(form, std::move(name), ControlKind::kTimer), Interval(*this, 0) {
    Enabled = false;
}

ListView::ListView(Form& form, std::string name)
    : Control(form, std::move(name), ControlKind::kListView), Sorted(*this, true),
      SortKey(*this, 0), SortOrder(*this, SortDirection::kAscending), Tip(*this, "") {}

} // namespace tarvix::fields
