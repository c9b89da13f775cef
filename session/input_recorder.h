#pragma once

#include <string_view>

namespace tarvix::fields {
class Control;
}

namespace tarvix::session {

// Is told what the user does, before it takes effect; answers are told when they were given.
class InputRecorder {
  public:
    virtual ~InputRecorder() = default;
    // A button, a box, a choice or a menu entry.
    virtual void Clicked(const fields::Control& control) = 0;
    // `value` as the control takes it, not as it shows it.
    virtual void Entered(const fields::Control& control, std::string_view value) = 0;
    // The focus left a control that does something then.
    virtual void Left(const fields::Control& control) = 0;
    // An option was set back to what it is at first, where no value says that.
    virtual void Reset(const fields::Control& control) = 0;
    // Which rows are selected has changed.
    virtual void Selected() = 0;
    // A column's head was clicked, by its index.
    virtual void Sorted(int column) = 0;
    // A row was opened, from 0.
    virtual void Opened(int row) = 0;
    // A button's caption, a text that was typed, or a path in drive form; empty for a cancel.
    virtual void Answered(std::string_view answer) = 0;
};

} // namespace tarvix::session
