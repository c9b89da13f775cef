#include "forms/field_showers.h"

#include "forms/field_widgets.h"
#include "forms/list_box.h"
#include "forms/panel_parts.h"
#include "forms/text_conversion.h"
#include "forms/theme.h"

#include <QSignalBlocker>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace tarvix::forms {

namespace {

constexpr int kBarSteps = 1000;

Qt::CheckState StateOf(int value) {
    return value == 0 ? Qt::Unchecked : value == 1 ? Qt::Checked : Qt::PartiallyChecked;
}

QString TextIn(const PathText& paths, const std::string& text) {
    return ToQt(paths.shown ? paths.shown(text) : text);
}

void FillItems(QComboBox& box, const std::vector<fields::ComboItem>& items,
               const std::vector<std::size_t>& order, const PathText& paths) {
    box.clear();
    for (const std::size_t position : order) {
        const fields::ComboItem& item = items[position];
        box.addItem(TextIn(paths, item.text), item.data);
    }
    box.setCurrentIndex(-1);
}

void FillLines(QListWidget& list, const std::vector<std::string>& lines, const PathText& paths) {
    list.clear();
    for (const std::string& line : lines) {
        list.addItem(paths.shown ? ToQt(paths.shown(line)) : Shown(line));
    }
}

// Where characters that were just typed are not taken, the rest is edited on.
void ReplaceText(QLineEdit& edit, const QString& text) {
    const qsizetype behind = edit.text().size() - edit.cursorPosition();
    edit.setText(text);
    edit.setCursorPosition(static_cast<int>(std::max<qsizetype>(0, text.size() - behind)));
}

void ShowComboText(const fields::ComboBox& field, QComboBox& box, const PathText& paths) {
    const bool isSaid = paths.read && paths.read(ToUtf8(box.currentText())) == field.Text.Get();
    if (isSaid) return;
    const QString text = TextIn(paths, field.Text.Get());
    if (!field.IsEditable()) {
        box.setCurrentIndex(box.findText(text));
    } else if (box.currentText() != text) {
        ReplaceText(*box.lineEdit(), text);
    }
}

} // namespace

Shower ShowerOf(const fields::Control& control, QLabel& label) {
    return [&control, &label] {
        const QString text = Shown(control.CaptionText());
        label.setText(IsCounter(label) ? WithThousands(WithoutLeadingZeros(text)) : text);
    };
}

Shower ShowerOf(const fields::Control& control, QAbstractButton& button) {
    return [&control, &button] { button.setText(ToQt(control.CaptionText())); };
}

Shower ShowerOf(const fields::CheckBox& field, QCheckBox& box) {
    return [&field, &box] {
        box.setText(ToQt(field.Caption.Get()));
        box.setTristate(field.IsTriState());
        box.setCheckState(StateOf(field.Value));
    };
}

Shower ShowerOf(const fields::OptionButton& field, QRadioButton& button) {
    return [&field, &button] {
        button.setText(ToQt(field.Caption.Get()));
        if (field.Value) button.setChecked(true);
    };
}

// None of several may be set, which buttons that exclude each other can't show.
Shower ShowerOf(const fields::CheckBox& field, QRadioButton& button) {
    return [&field, &button] {
        button.setText(ToQt(field.Caption.Get()));
        const bool isSet = field.Value == 1;
        button.setAutoExclusive(isSet);
        button.setChecked(isSet);
        button.setAutoExclusive(true);
    };
}

Shower ShowerOf(const fields::ComboBox& field, QComboBox& box, PathText paths, EntryOrder order) {
    return [&field, &box, paths = std::move(paths), order = std::move(order),
            shown = std::vector<fields::ComboItem>(),
            shownOrder = std::vector<std::size_t>()]() mutable {
        const QSignalBlocker quiet(box);
        std::vector<std::size_t> orderNow = order();
        if (shown != field.Items() || shownOrder != orderNow) {
            shown = field.Items();
            shownOrder = std::move(orderNow);
            FillItems(box, shown, shownOrder, paths);
        }
        ShowComboText(field, box, paths);
    };
}

Shower ShowerOf(const fields::TextBox& field, QLineEdit& edit) {
    return [&field, &edit] {
        const QString text = ToQt(field.Text.Get());
        if (edit.text() != text) ReplaceText(edit, text);
    };
}

Shower ShowerOf(const fields::ListBox& field, FieldListBox& list, PathText paths) {
    return [&field, &list, paths = std::move(paths), shown = std::vector<std::string>()]() mutable {
        if (shown != field.Items()) {
            shown = field.Items();
            FillLines(list, shown, paths);
        }
        for (int i = 0; i < list.count(); ++i) {
            list.item(i)->setSelected(field.IsSelected(static_cast<std::size_t>(i)));
        }
    };
}

Shower ShowerOf(const fields::DatePicker& field, QDateTimeEdit& picker) {
    return [&field, &picker] {
        const QSignalBlocker quiet(picker);
        const QString text = ToQt(field.Text.Get());
        if (field.IsTime()) {
            picker.setTime(QTime::fromString(text, "HH:mm:ss"));
        } else if (const QDate date = QDate::fromString(text, "yyyy/MM/dd"); date.isValid()) {
            picker.setDate(date);
        }
    };
}

Shower ShowerOf(const fields::ProgressBar& field, QProgressBar& bar) {
    return [&field, &bar] {
        const auto most = static_cast<double>(field.Max);
        const auto value = static_cast<double>(field.Value);
        bar.setRange(0, kBarSteps);
        bar.setValue(most > 0 ? static_cast<int>(value * kBarSteps / most) : 0);
    };
}

void ShowCommon(const fields::Control& control, QWidget& widget, bool isThere) {
    const bool keepsPlace = KeepsPlace(widget);
    widget.setVisible(isThere || keepsPlace);
    widget.setEnabled(control.Enabled && (isThere || !keepsPlace));
    const bool hasOwnTip = widget.property(kOwnTipProperty).toBool();
    if (!control.ToolTipText->empty() && !hasOwnTip)
        widget.setToolTip(TipText(ToQt(control.ToolTipText.Get())));
    const QPalette inherited = widget.parentWidget()->palette();
    if (control.ForeColor == fields::kBlack && !widget.testAttribute(Qt::WA_SetPalette)) return;
    QPalette palette = widget.palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::WindowText,
                         control.ForeColor == fields::kBlack
                             ? inherited.color(group, QPalette::WindowText)
                             : Tint(control.ForeColor, inherited));
    }
    if (palette != widget.palette()) widget.setPalette(palette);
}

} // namespace tarvix::forms
