#pragma once

#include "fields/form.h"

#include <concepts>
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
};

class Control;
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

// One control of a form, known by name. It registers itself with the form that it belongs to and
// lives as long as that form.
class Control {
  public:
    Control(Form& form, std::string name, ControlKind kind, int index = -1);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    Form& Owner() const { return form_; }
    ControlKind Kind() const { return kind_; }
    // "optTo(1)" for an entry of an array.
    const std::string& Name() const { return name_; }
    // "optTo" for an entry of an array.
    std::string_view ArrayName() const;
    int Index() const { return index_; } // -1 outside arrays

    // What `dump` prints and `set` takes.
    virtual std::string ValueText() const { return {}; }

    Property<bool> Visible{*this, true};
    Property<bool> Enabled{*this, true};
    Property<Color> ForeColor{*this, kBlack};
    Property<std::string> ToolTipText{*this, ""};

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
