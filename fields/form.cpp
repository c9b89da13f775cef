#include "fields/form.h"

#include "fields/control.h"
#include "text/case.h"

#include <algorithm>
#include <array>

namespace tarvix::fields {

Control* Form::Find(std::string_view name) const {
    const auto found = std::ranges::find_if(controls_, [name](const Control* control) {
        return text::EqualNoCase(control->Name(), name);
    });
    return found == controls_.end() ? nullptr : *found;
}

std::vector<Control*> Form::WaysOut() const {
    constexpr std::array<std::string_view, 4> kNames{"cmdCancel", "CancelButton", "cmdOK",
                                                     "OKButton"};
    std::vector<Control*> buttons;
    for (const std::string_view name : kNames) {
        if (Control* button = Find(name)) buttons.push_back(button);
    }
    return buttons;
}

void Form::CopyFrom(const Form& other) {
    for (std::size_t i = 0; i < std::min(controls_.size(), other.controls_.size()); ++i) {
        controls_[i]->CopyFrom(*other.controls_[i]);
    }
}

std::vector<Control*> Form::TakeChanged() {
    for (Control* control : changed_) {
        control->changed_ = false;
    }
    return std::exchange(changed_, {});
}

} // namespace tarvix::fields
