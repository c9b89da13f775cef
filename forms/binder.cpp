#include "forms/binder.h"

#include "forms/field_widgets.h"
#include "forms/list_box.h"
#include "forms/native_input.h"
#include "forms/text_conversion.h"
#include "forms/theme.h"
#include "session/session.h"
#include "session/user_input.h"

#include <QAction>
#include <QFocusEvent>
#include <QGroupBox>
#include <QSignalBlocker>

#include <algorithm>

namespace tarvix::forms {

namespace {

using fields::ControlKind;

constexpr char kFormMark[] = "form";

bool NeedsRoutine(ControlKind kind) {
    return kind == ControlKind::kCommandButton || kind == ControlKind::kMenuEntry;
}

Qt::CheckState StateOf(int value) {
    return value == 0 ? Qt::Unchecked : value == 1 ? Qt::Checked : Qt::PartiallyChecked;
}

void FillItems(QComboBox& box, const std::vector<fields::ComboItem>& items) {
    box.clear();
    for (const auto& item : items) {
        box.addItem(ToQt(item.text), item.data);
    }
    box.setCurrentIndex(-1);
}

void FillLines(QListWidget& list, const std::vector<std::string>& lines) {
    list.clear();
    for (const std::string& line : lines) {
        list.addItem(Shown(line));
    }
}

// Where characters that were just typed are not taken, the rest is edited on.
void ReplaceText(QLineEdit& edit, const QString& text) {
    const qsizetype behind = edit.text().size() - edit.cursorPosition();
    edit.setText(text);
    edit.setCursorPosition(static_cast<int>(std::max<qsizetype>(0, text.size() - behind)));
}

void ShowComboText(const fields::ComboBox& field, QComboBox& box) {
    const QString text = ToQt(field.Text.Get());
    if (!field.IsEditable()) {
        box.setCurrentIndex(box.findText(text));
    } else if (box.currentText() != text) {
        ReplaceText(*box.lineEdit(), text);
    }
}

void ShowMark(const fields::Control& control, QAbstractButton& button) {
    if (control.Kind() == ControlKind::kCheckBox) {
        const auto& field = static_cast<const fields::CheckBox&>(control);
        auto& box = static_cast<QCheckBox&>(button);
        box.setTristate(field.IsTriState());
        box.setCheckState(StateOf(field.Value));
    } else if (control.Kind() == ControlKind::kOptionButton) {
        const auto& field = static_cast<const fields::OptionButton&>(control);
        if (field.Value) button.setChecked(true);
    }
}

// Leaving for another window, a menu or a list that drops down is not leaving the control.
bool IsRealLeave(const QFocusEvent& event) {
    return event.reason() != Qt::ActiveWindowFocusReason &&
           event.reason() != Qt::PopupFocusReason && event.reason() != Qt::MenuBarFocusReason;
}

} // namespace

void MarkAsForm(QWidget& panel) {
    panel.setProperty(kFormMark, true);
}

Binder::Binder(session::Session& session, EventGate& gate, fields::Form& form, QWidget& root)
    : session_(session), gate_(gate), form_(form), root_(root) {
    Bind();
}

void Binder::Bind() {
    for (fields::Control* control : form_.Controls()) {
        for (QObject* object : root_.findChildren<QObject*>(ToQt(control->Name()))) {
            if (!IsOfForm(*object)) continue;
            if (bound_.emplace(object, control).second) BindObject(*control, *object);
        }
    }
    ShowAll();
}

bool Binder::IsOfForm(const QObject& object) const {
    for (const QObject* at = object.parent(); at != nullptr && at != &root_; at = at->parent()) {
        if (at->property(kFormMark).toBool()) return false;
    }
    return true;
}

void Binder::BindObject(fields::Control& control, QObject& object) {
    Shower shower;
    if (auto* action = qobject_cast<QAction*>(&object)) {
        showers_[&control].push_back(BindAction(control, *action));
        return;
    }
    auto* widget = qobject_cast<QWidget*>(&object);
    if (widget == nullptr || control.Kind() == ControlKind::kListView) return;
    if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
        shower = BindButton(control, *button);
    } else if (auto* combo = qobject_cast<QComboBox*>(widget)) {
        shower = BindCombo(static_cast<fields::ComboBox&>(control), *combo);
    } else if (auto* edit = qobject_cast<QLineEdit*>(widget)) {
        shower = BindText(static_cast<fields::TextBox&>(control), *edit);
    } else if (auto* list = dynamic_cast<FieldListBox*>(widget)) {
        shower = BindList(static_cast<fields::ListBox&>(control), *list);
    } else if (auto* picker = qobject_cast<QDateTimeEdit*>(widget)) {
        shower = BindPicker(static_cast<fields::DatePicker&>(control), *picker);
    } else if (auto* label = qobject_cast<QLabel*>(widget)) {
        shower = [&control, label] {
            const QString text = Shown(control.CaptionText());
            label->setText(IsCounter(*label) ? WithThousands(WithoutLeadingZeros(text)) : text);
        };
    } else if (auto* bar = qobject_cast<QProgressBar*>(widget)) {
        shower = [&field = static_cast<fields::ProgressBar&>(control), bar] {
            const long long most = field.Max;
            bar->setRange(0, 1000);
            bar->setValue(most > 0 ? static_cast<int>(field.Value * 1000.0 / most) : 0);
        };
    }
    widget->installEventFilter(this);
    showers_[&control].push_back([this, &control, widget, shower] {
        if (shower) shower();
        ShowCommon(control, *widget);
    });
}

Binder::Shower Binder::BindButton(fields::Control& control, QAbstractButton& button) {
    connect(&button, &QAbstractButton::clicked, this, [this, &control] { Click(control); });
    return [&control, &button] {
        button.setText(ToQt(control.CaptionText()));
        ShowMark(control, button);
    };
}

Binder::Shower Binder::BindCombo(fields::ComboBox& field, QComboBox& box) {
    connect(&box, &QComboBox::textActivated, this,
            [this, &field](const QString& text) { Set(field, text); });
    if (field.IsEditable()) {
        connect(box.lineEdit(), &QLineEdit::textEdited, this,
                [this, &field](const QString& text) { Set(field, text); });
    }
    return [&field, &box, shown = std::vector<fields::ComboItem>()]() mutable {
        const QSignalBlocker quiet(box);
        if (shown != field.Items()) {
            shown = field.Items();
            FillItems(box, shown);
        }
        ShowComboText(field, box);
    };
}

Binder::Shower Binder::BindText(fields::TextBox& field, QLineEdit& edit) {
    connect(&edit, &QLineEdit::textEdited, this,
            [this, &field](const QString& text) { Set(field, text); });
    return [&field, &edit] {
        const QString text = ToQt(field.Text.Get());
        if (edit.text() != text) ReplaceText(edit, text);
    };
}

Binder::Shower Binder::BindList(fields::ListBox& field, FieldListBox& list) {
    list.setSelectionMode(field.IsMultiple() ? QAbstractItemView::MultiSelection
                                             : QAbstractItemView::SingleSelection);
    list.onChoose = [this, &field](int line) {
        Set(field, ToQt(field.Items()[static_cast<std::size_t>(line)]));
    };
    list.onOpen = [this, &field](int line) {
        const std::string event = form_.Name() + "." + field.Name() + "_DblClick";
        gate_.Run(&field, [&] { session_.events.Raise(session_, event, {line}); });
    };
    return [&field, &list, shown = std::vector<std::string>()]() mutable {
        if (shown != field.Items()) {
            shown = field.Items();
            FillLines(list, shown);
        }
        for (int i = 0; i < list.count(); ++i) {
            list.item(i)->setSelected(field.IsSelected(static_cast<std::size_t>(i)));
        }
    };
}

Binder::Shower Binder::BindPicker(fields::DatePicker& field, QDateTimeEdit& picker) {
    connect(&picker, &QDateTimeEdit::dateTimeChanged, this,
            [this, &field, &picker] { Set(field, picker.text()); });
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

Binder::Shower Binder::BindAction(fields::Control& control, QAction& action) {
    connect(&action, &QAction::triggered, this, [this, &control] { Click(control); });
    return [this, &control, &action] {
        action.setText(ToQt(control.CaptionText()));
        action.setVisible(control.Visible && HasRoutine(control));
        action.setEnabled(control.Enabled);
        if (control.Kind() != ControlKind::kMenuEntry) return;
        const bool checked = static_cast<fields::MenuEntry&>(control).Checked;
        if (checked) action.setCheckable(true);
        action.setChecked(checked);
    };
}

bool Binder::HasRoutine(const fields::Control& control, std::string_view event) const {
    std::string name = form_.Name();
    name.append(".").append(control.ArrayName()).append("_").append(event);
    return session_.events.Has(name);
}

void Binder::ShowCommon(const fields::Control& control, QWidget& widget) const {
    widget.setVisible(control.Visible && (!NeedsRoutine(control.Kind()) || HasRoutine(control)));
    widget.setEnabled(control.Enabled);
    if (!control.ToolTipText->empty()) widget.setToolTip(TipText(ToQt(control.ToolTipText.Get())));
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

void Binder::Show(fields::Control& control) {
    if (pending_.contains(&control)) return;
    const auto found = showers_.find(&control);
    if (found == showers_.end()) return;
    for (const Shower& shower : found->second) {
        shower();
    }
}

void Binder::ShowAll() {
    form_.TakeChanged();
    for (fields::Control* control : form_.Controls()) {
        Show(*control);
    }
}

void Binder::Flush() {
    for (fields::Control* control : form_.TakeChanged()) {
        Show(*control);
    }
    TakeFocus();
}

void Binder::TakeFocus() {
    if (form_.Focus == nullptr) return;
    auto* widget = root_.findChild<QWidget*>(ToQt(form_.Focus->Name()));
    form_.Focus = nullptr;
    if (widget != nullptr && widget->isEnabled()) widget->setFocus();
}

void Binder::TakeNativePaths(fields::Control& control) {
    if (!TakesPaths(control) || !control.Enabled) return;
    const std::string typed = static_cast<fields::ComboBox&>(control).Text;
    const std::string drive = DriveForm(session_.platform.paths, typed);
    if (drive != typed) Set(control, ToQt(drive));
}

void Binder::Click(fields::Control& control) {
    if (control.Kind() == ControlKind::kCommandButton) {
        for (fields::Control* other : form_.Controls()) {
            TakeNativePaths(*other);
        }
    }
    gate_.Run(&control, [&] { (void)session::UserClick(session_, control); });
    Show(control);
}

void Binder::Set(fields::Control& control, const QString& value) {
    pending_.erase(&control);
    const bool done =
        gate_.Run(&control, [&] { (void)session::UserSet(session_, control, ToUtf8(value)); });
    if (!done) pending_[&control] = value;
    Show(control);
}

void Binder::ApplyPending() {
    while (!pending_.empty() && !gate_.IsBusy()) {
        const auto next = *pending_.begin();
        Set(*next.first, next.second);
    }
}

void Binder::Leave(fields::Control& control) {
    TakeNativePaths(control);
    if (HasRoutine(control, "LostFocus")) {
        gate_.Run(&control, [&] { session::UserLeave(session_, control); });
    }
}

bool Binder::eventFilter(QObject* watched, QEvent* event) {
    const auto found = bound_.find(watched);
    if (found == bound_.end()) return false;
    if (event->type() == QEvent::FocusOut && IsRealLeave(static_cast<QFocusEvent&>(*event))) {
        // After the focus has settled, so that a prompt does not open in the middle of the change.
        QMetaObject::invokeMethod(
            this, [this, control = found->second] { Leave(*control); }, Qt::QueuedConnection);
    }
    const bool wheel = event->type() == QEvent::Wheel;
    return wheel && qobject_cast<QComboBox*>(watched) != nullptr; // never changed by scrolling past
}

} // namespace tarvix::forms
