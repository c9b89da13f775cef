#include "fields/control.h"

#include <fmt/core.h>

namespace tarvix::fields {

void NoteChange(Control& control) {
    if (control.changed_) return;
    control.changed_ = true;
    control.form_.changed_.push_back(&control);
}

Control::Control(Form& form, std::string name, ControlKind kind, int index)
    : form_(form), name_(std::move(name)), kind_(kind), index_(index) {
    if (index >= 0) name_ += fmt::format("({})", index);
    form.controls_.push_back(this);
}

std::string_view Control::ArrayName() const {
    return std::string_view(name_).substr(0, index_ < 0 ? name_.size() : name_.find('('));
}

EnterResult Control::Enter(std::string_view /*text*/) {
    return std::unexpected("has no value that can be set.");
}

void Control::CopyFrom(const Control& other) {
    CopyValue(other);
    Visible = other.Visible;
    Enabled = other.Enabled;
}

} // namespace tarvix::fields
