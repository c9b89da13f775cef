#pragma once

#include "fields/controls.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

class QAbstractButton;
class QCheckBox;
class QComboBox;
class QDateTimeEdit;
class QLabel;
class QLineEdit;
class QProgressBar;
class QRadioButton;
class QWidget;

namespace tarvix::forms {

class FieldListBox;

// Brings a widget in line with its field. It holds references to both, which must live as long.
using Shower = std::function<void()>;

// How a box of paths differs from its field: what it shows of the field's text, and what the field
// holds of a text in the box. Empty functions where they are the same.
struct PathText {
    std::function<std::string(std::string_view)> shown;
    std::function<std::string(std::string_view)> read;
};

// The positions of a box's entries in the order in which they are offered.
using EntryOrder = std::function<std::vector<std::size_t>()>;

// One for each kind of widget. None of them makes the widget tell of a change. A label shows the
// caption, a counter with thousands separators; a box that can't hold the text is left as it is.
Shower ShowerOf(const fields::Control& control, QLabel& label);
Shower ShowerOf(const fields::Control& control, QAbstractButton& button);
Shower ShowerOf(const fields::CheckBox& field, QCheckBox& box);
Shower ShowerOf(const fields::OptionButton& field, QRadioButton& button);
Shower ShowerOf(const fields::ComboBox& field, QComboBox& box, PathText paths, EntryOrder order);
Shower ShowerOf(const fields::CheckBox& field, QRadioButton& button);
Shower ShowerOf(const fields::TextBox& field, QLineEdit& edit);
Shower ShowerOf(const fields::ListBox& field, FieldListBox& list, PathText paths = {});
Shower ShowerOf(const fields::DatePicker& field, QDateTimeEdit& picker);
Shower ShowerOf(const fields::ProgressBar& field, QProgressBar& bar);

// A widget with this property writes its tip itself.
constexpr const char* kOwnTipProperty = "hasOwnTip";

// What all widgets show alike: whether they are there and can be used, the tip, and the colour of
// the text. One that keeps its place is always there, and can't be used while it isn't.
void ShowCommon(const fields::Control& control, QWidget& widget, bool isThere);

} // namespace tarvix::forms
