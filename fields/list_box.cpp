#include "fields/controls.h"
#include "text/case.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::fields {

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

EnterResult ListBox::Enter(std::string_view text) {
    const auto found = std::ranges::find_if(
        items_, [text](const std::string& item) { return text::EqualNoCase(item, text); });
    if (found == items_.end()) return std::unexpected(fmt::format("has no line \"{}\".", text));
    const auto position = static_cast<std::size_t>(found - items_.begin());
    Select(position, !multiple_ || !selected_[position]);
    return Entered{"Click", static_cast<int>(position)};
}

void ListBox::CopyValue(const Control& other) {
    const auto& from = static_cast<const ListBox&>(other);
    items_ = from.items_;
    selected_ = from.selected_;
    NoteChange(*this);
    Header = from.Header;
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
