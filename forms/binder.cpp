#include "forms/binder.h"

#include "forms/attribute_box.h"
#include "forms/field_widgets.h"
#include "forms/folder_offers.h"
#include "forms/list_box.h"
#include "forms/text_conversion.h"
#include "session/native_entry.h"
#include "session/recent_entries.h"
#include "session/session.h"
#include "session/user_input.h"

#include <QAction>
#include <QFocusEvent>
#include <QHash>
#include <QVariant>
#include <fmt/core.h>

#include <algorithm>

namespace tarvix::forms {

namespace {

using fields::ControlKind;

constexpr const char* kUsualTip = "usualTip";

bool NeedsRoutine(ControlKind kind) {
    return kind == ControlKind::kCommandButton || kind == ControlKind::kMenuEntry;
}

// Leaving for another window, a menu or a list that drops down is not leaving the control.
bool IsRealLeave(const QFocusEvent& event) {
    return event.reason() != Qt::ActiveWindowFocusReason &&
           event.reason() != Qt::PopupFocusReason && event.reason() != Qt::MenuBarFocusReason;
}

} // namespace

Binder::Binder(session::Session& session, EventGate& gate, fields::Form& form, QWidget& root)
    : session_(session), gate_(gate), form_(form), root_(root) {
    // By name, so that the window is gone through once and not for each control.
    QHash<QString, QList<QObject*>> objects;
    for (QObject* object : root_.findChildren<QObject*>())
        objects[object->objectName()] << object;
    for (fields::Control* control : form_.Controls()) {
        for (QObject* object : objects.value(ToQt(control->Name()))) {
            if (bound_.emplace(object, control).second) BindObject(*control, *object);
        }
    }
    ShowAll();
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
        shower = ShowerOf(control, *label);
    } else if (auto* bar = qobject_cast<QProgressBar*>(widget)) {
        shower = ShowerOf(static_cast<fields::ProgressBar&>(control), *bar);
    }
    widget->installEventFilter(this);
    showers_[&control].push_back([this, &control, widget, shower] {
        if (shower) shower();
        const bool canAct = !NeedsRoutine(control.Kind()) || HasRoutine(control);
        ShowCommon(control, *widget, control.Visible && canAct);
        Withhold(control, *widget);
    });
}

Shower Binder::BindButton(fields::Control& control, QAbstractButton& button) {
    if (auto* box = dynamic_cast<AttributeBox*>(&button)) {
        connect(box, &QAbstractButton::clicked, this,
                [this, &control, box] { Set(control, box->Next()); });
        return ShowerOf(static_cast<fields::CheckBox&>(control), *box);
    }
    connect(&button, &QAbstractButton::clicked, this, [this, &control, &button] {
        // Who goes through choices by arrow keys stays among them.
        const auto* choice = dynamic_cast<FieldRadioButton*>(&button);
        byArrow_ = choice != nullptr && FieldRadioButton::IsByArrow();
        Click(control);
        byArrow_ = false;
    });
    if (auto* choice = dynamic_cast<FieldChoiceButton*>(&button)) {
        return ShowerOf(static_cast<fields::CheckBox&>(control), *choice);
    }
    if (auto* box = qobject_cast<QCheckBox*>(&button)) {
        return ShowerOf(static_cast<fields::CheckBox&>(control), *box);
    }
    if (auto* choice = qobject_cast<QRadioButton*>(&button)) {
        return ShowerOf(static_cast<fields::OptionButton&>(control), *choice);
    }
    return ShowerOf(control, button);
}

Shower Binder::BindCombo(fields::ComboBox& field, QComboBox& box) {
    connect(&box, &QComboBox::textActivated, this,
            [this, &field](const QString& text) { Set(field, text); });
    if (field.IsEditable()) {
        connect(box.lineEdit(), &QLineEdit::textEdited, this,
                [this, &field](const QString& text) { Set(field, text); });
    }
    if (session::TakesPaths(field)) OfferFolders(box, MakeFolderOffers(session_, field, box));
    return ShowerOf(field, box, PathTextOf(field),
                    [this, &field] { return session::RecentFirst(session_, field); });
}

Shower Binder::BindText(fields::TextBox& field, QLineEdit& edit) {
    connect(&edit, &QLineEdit::textEdited, this,
            [this, &field](const QString& text) { Set(field, text); });
    return ShowerOf(field, edit);
}

Shower Binder::BindList(fields::ListBox& field, FieldListBox& list) {
    list.setSelectionMode(field.IsMultiple() ? QAbstractItemView::MultiSelection
                                             : QAbstractItemView::SingleSelection);
    list.onChoose = [this, &field](int line) {
        Set(field, ToQt(field.Items()[static_cast<std::size_t>(line)]));
    };
    list.onOpen = [this, &field](int line) {
        const std::string event = fmt::format("{}.{}_DblClick", form_.Name(), field.Name());
        gate_.Run(&field, [&] { session_.events.Raise(session_, event, {line}); });
    };
    const bool hasPaths = field.Name() == "lstMulti";
    if (!hasPaths) return ShowerOf(field, list);
    return ShowerOf(field, list,
                    {.shown = [this](std::string_view path) { return session_.Shown(path); }});
}

Shower Binder::BindPicker(fields::DatePicker& field, QDateTimeEdit& picker) {
    connect(&picker, &QDateTimeEdit::dateTimeChanged, this,
            [this, &field, &picker] { Set(field, picker.text()); });
    return ShowerOf(field, picker);
}

Shower Binder::BindAction(fields::Control& control, QAction& action) {
    connect(&action, &QAction::triggered, this, [this, &control] { Click(control); });
    return [this, &control, &action] {
        const bool canAct = !NeedsRoutine(control.Kind()) || HasRoutine(control);
        action.setText(ToQt(control.CaptionText()));
        action.setVisible(control.Visible && canAct);
        action.setEnabled(control.Enabled);
        Withhold(control, action);
        const auto* entry = dynamic_cast<const fields::MenuEntry*>(&control);
        const auto* choice = dynamic_cast<const fields::OptionButton*>(&control);
        const auto* box = dynamic_cast<const fields::CheckBox*>(&control);
        if (entry == nullptr && choice == nullptr && box == nullptr) return;
        const bool checked = entry != nullptr    ? entry->Checked
                             : choice != nullptr ? choice->Value
                                                 : box->Value == 1;
        if (checked || box != nullptr) action.setCheckable(true);
        action.setChecked(checked);
    };
}

bool Binder::HasRoutine(const fields::Control& control, std::string_view event) const {
    return session_.events.Has(fmt::format("{}.{}_{}", form_.Name(), control.ArrayName(), event));
}

void Binder::UseWhyNot(WhyNot whyNot) {
    whyNot_ = std::move(whyNot);
    ShowAll();
}

// Its usual tip is kept beside what it tells meanwhile.
template <class Shown>
void Binder::Withhold(const fields::Control& control, Shown& shown) const {
    const QString why = whyNot_ ? whyNot_(control) : QString();
    const QVariant usual = shown.property(kUsualTip);
    if (!why.isEmpty()) {
        if (!usual.isValid()) shown.setProperty(kUsualTip, shown.toolTip());
        shown.setEnabled(false);
        shown.setToolTip(why);
    } else if (usual.isValid()) {
        shown.setToolTip(usual.toString());
        shown.setProperty(kUsualTip, QVariant());
    }
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

void Binder::ShowThose(std::span<const std::string_view> names) {
    for (fields::Control* control : form_.Controls()) {
        if (std::ranges::find(names, control->Name()) != names.end()) Show(*control);
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
    if (byArrow_ || widget == nullptr || !widget->isEnabled()) return;
    widget->setFocus();
    // A window that isn't active yet would lose what the focus selects.
    const auto* combo = qobject_cast<QComboBox*>(widget);
    auto* edit = combo != nullptr ? combo->lineEdit() : qobject_cast<QLineEdit*>(widget);
    if (edit != nullptr) edit->selectAll();
}

void Binder::TakeNativePaths(fields::Control& control) {
    if (!session::TakesPaths(control) || !control.Enabled) return;
    const std::string typed = control.ValueText();
    const std::string drive = session::EntryInDriveForm(session_.platform.paths, control, typed);
    if (drive != typed) Set(control, ToQt(drive));
}

// What was typed into a box of paths stays as it stands there, whatever its field makes of it.
PathText Binder::PathTextOf(const fields::Control& control) const {
    if (!session::TakesPaths(control)) return {};
    return {.shown =
                [this, &control](std::string_view text) {
                    return session::EntryShown(session_, control, text);
                },
            .read =
                [this, &control](std::string_view typed) {
                    return session_.state.platformSettings.showsNative
                               ? session::EntryInDriveForm(session_.platform.paths, control, typed)
                               : std::string(typed);
                }};
}

// The choice of several that is made already.
bool Binder::IsChosen(const fields::Control& control) const {
    if (control.Kind() != ControlKind::kCheckBox) return false;
    const auto* widget = root_.findChild<QAbstractButton*>(ToQt(control.Name()));
    return dynamic_cast<const FieldChoiceButton*>(widget) != nullptr &&
           static_cast<const fields::CheckBox&>(control).Value == 1;
}

void Binder::Click(fields::Control& control) {
    if (IsChosen(control)) return Show(control);
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
    const PathText paths = PathTextOf(control);
    const std::string text = paths.read ? paths.read(ToUtf8(value)) : ToUtf8(value);
    const bool done = gate_.Run(&control, [&] { (void)session::UserSet(session_, control, text); });
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
