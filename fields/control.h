#pragma once

#include "fields/form.h"

#include <concepts>
#include <expected>
#include <string>
#include <string_view>
#include <utility>

namespace tarvix::fields {

enum class ControlKind {
    kLabel,
    kTextBox,
    kCheckBox,
    kOptionButton,
    kComboBox,
    kCommandButton,
    kMenuEntry,
    kFrame,
    kListView,
    kListBox,
    kDatePicker,
    kProgressBar,
    kTimer,
};

class Control;
// Puts the control among those that its form's TakeChanged gives next, once.
void NoteChange(Control& control);

// A value of a control; assigning another value marks the control as changed.
template <class T>
class Property {
  public:
    Property(Control& owner, T value) : owner_(&owner), value_(std::move(value)) {}
    Property(const Property&) = delete;
    Property& operator=(const Property& other) { return *this = other.value_; }
    template <std::convertible_to<T> U>
    Property& operator=(U&& value) {
        if (!(value_ == value)) {
            value_ = std::forward<U>(value);
            NoteChange(*owner_);
        }
        return *this;
    }
    operator const T&() const { return value_; }
    const T& Get() const { return value_; }
    const T* operator->() const { return &value_; }

  private:
    Control* owner_;
    T value_;
};

// The event that follows what a user entered, for whoever raises it.
struct Entered {
    std::string_view event; // "Change" or "Click"; empty when nothing changed
    int index = -1;         // the entry of an array, the line of a list
};
// Else why the text is none that the control takes: the sentence behind the control's name.
using EnterResult = std::expected<Entered, std::string>;

// One control of a form, known by name. It registers itself with the form that it belongs to and
// lives as long as that form.
class Control {
  public:
    Control(Form& form, std::string name, ControlKind kind, int index = -1);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    Form& Owner() const { return form_; }
    // For whoever makes or joins a widget; what a control does with itself it does itself.
    ControlKind Kind() const { return kind_; }
    // "optTo(1)" for an entry of an array.
    const std::string& Name() const { return name_; }
    // "optTo" for an entry of an array.
    std::string_view ArrayName() const;
    int Index() const { return index_; } // -1 outside arrays

    // The words that it bears, with "&" before its letter; empty for a control that bears none.
    virtual std::string CaptionText() const { return {}; }
    // What `dump` prints and Enter takes: a text, 0, 1 or 2, the selected lines.
    virtual std::string ValueText() const { return {}; }
    // Takes a value as a user would enter it, whether the control is enabled or not. Nothing
    // changes when it is refused.
    virtual EnterResult Enter(std::string_view text);
    // What a press does to the control by itself, before its routine runs. True when it was a
    // choice already and so nothing changed.
    virtual bool Press() { return false; }
    // Takes over value, items, Visible and Enabled of `other`, which must be of the same class.
    void CopyFrom(const Control& other);

    Property<bool> Visible{*this, true};
    Property<bool> Enabled{*this, true};
    Property<Color> ForeColor{*this, kBlack};
    Property<std::string> ToolTipText{*this, ""};

  protected:
    // The value and the items only; `other` is of the same class.
    virtual void CopyValue(const Control& /*other*/) {}

  private:
    friend void NoteChange(Control& control);
    friend class Form;
    Form& form_;
    std::string name_;
    ControlKind kind_;
    int index_;
    bool changed_ = false;
};

} // namespace tarvix::fields
