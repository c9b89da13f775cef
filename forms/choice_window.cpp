#include "forms/choice_window.h"

#include "fields/prompt_forms.h"
#include "forms/duplicate_text.h"
#include "forms/field_widgets.h"
#include "forms/fitting_area.h"
#include "forms/panel_parts.h"
#include "forms/text_conversion.h"
#include "forms/wrapping_label.h"
#include "session/session.h"

#include <QHBoxLayout>
#include <QHideEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <compare>
#include <cstdlib>
#include <optional>

namespace tarvix::forms {

namespace {

constexpr const char* kLastPlace = "placeOfLastQuestion";
constexpr const char* kOverwriteTip =
    "Replaces what is there, which goes to the trash. A folder is replaced whole, with all that is "
    "in it.";

// How far a button lies in the direction of an arrow key; those of the same column come first, and
// one in none of the rows or columns lies nowhere.
struct Way {
    bool isOffColumn = false;
    int along = 0;
    int aside = 0;
    auto operator<=>(const Way&) const = default;
};

std::optional<Way> WayTo(const QRect& from, const QRect& to, int key) {
    const QPoint way = to.center() - from.center();
    const bool isInRow = to.top() <= from.bottom() && from.top() <= to.bottom();
    const bool isInColumn = to.left() <= from.right() && from.left() <= to.right();
    const bool isSideways = key == Qt::Key_Left || key == Qt::Key_Right;
    const bool isBack = key == Qt::Key_Left || key == Qt::Key_Up;
    const int forth = isSideways ? way.x() : way.y();
    const int along = isBack ? -forth : forth;
    if (along <= 0 || isSideways != isInRow) return std::nullopt;
    return Way{!isSideways && !isInColumn, along, std::abs(isSideways ? way.y() : way.x())};
}

// An answer; arrow keys go to the one that lies that way, and stay where there is none.
class AnswerButton : public QPushButton {
  protected:
    void keyPressEvent(QKeyEvent* event) override {
        const bool isArrow = event->key() >= Qt::Key_Left && event->key() <= Qt::Key_Down;
        if (!isArrow || event->modifiers() != Qt::NoModifier)
            return QPushButton::keyPressEvent(event);
        if (QWidget* next = Towards(event->key())) next->setFocus(Qt::TabFocusReason);
    }

  private:
    QRect Place() const { return {mapTo(window(), QPoint()), size()}; }
    QWidget* Towards(int key) const {
        QWidget* nearest = nullptr;
        std::optional<Way> least;
        for (auto* other : window()->findChildren<QPushButton*>()) {
            const auto* answer = dynamic_cast<const AnswerButton*>(other);
            if (answer == nullptr || !answer->isVisible() || !answer->isEnabled()) continue;
            const auto way = WayTo(Place(), answer->Place(), key);
            if (!way || (least && *least <= *way)) continue;
            least = way;
            nearest = other;
        }
        return nearest;
    }
};

QPushButton* MakeChoice(const fields::CommandButton& field) {
    auto* button = new AnswerButton;
    button->setObjectName(ToQt(field.Name()));
    button->setAutoDefault(true);
    return button;
}

WrappingLabel* MakeText(const fields::Label& field) {
    auto* label = new WrappingLabel(Shown(field.Caption.Get()));
    label->setObjectName(ToQt(field.Name()));
    return label;
}

QWidget* MakeTextWithNote(const fields::Label& text, const fields::Label& note) {
    auto* panel = new QWidget;
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(MakeText(text));
    column->addWidget(MakeText(note));
    column->addStretch(1);
    return panel;
}

} // namespace

ChoiceWindow::ChoiceWindow(session::Session& session, EventGate& gate, fields::Form& form,
                           QWidget* parent)
    : ModalWindow(session, gate, form, parent), column_(new QVBoxLayout(this)) {
    column_->setSpacing(12);
}

void ChoiceWindow::AddText(QWidget& text, QStyle::StandardPixmap icon) {
    auto* picture = new QLabel;
    const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
    picture->setPixmap(style()->standardIcon(icon).pixmap(size, size));
    auto* row = new QHBoxLayout;
    row->setSpacing(16);
    row->addWidget(picture, 0, Qt::AlignTop);
    row->addWidget(new FittingArea(text, 5), 1);
    column_->addLayout(row, 1);
}

void ChoiceWindow::AddGroups(const QList<Group>& groups) {
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    for (const Group& group : groups) {
        auto* buttons = new QVBoxLayout;
        buttons->setSpacing(4);
        if (!group.title.isEmpty()) buttons->addWidget(new QLabel(group.title));
        for (const auto* field : group.buttons) {
            buttons->addWidget(MakeChoice(*field));
        }
        buttons->addStretch(1);
        row->addLayout(buttons, 1);
    }
    column_->addLayout(row);
}

void ChoiceWindow::AddRow(const QList<const fields::CommandButton*>& buttons) {
    QList<QWidget*> parts;
    for (const auto* field : buttons) {
        parts << MakeChoice(*field);
    }
    column_->addWidget(InRow(parts), 0, Qt::AlignRight);
}

void ChoiceWindow::Tip(const fields::CommandButton& button, const QString& text, const char* icon) {
    auto* widget = findChild<QPushButton*>(ToQt(button.Name()));
    widget->setToolTip(TipText(text));
    widget->setAccessibleDescription(text);
    if (icon[0] != '\0') widget->setIcon(QIcon::fromTheme(icon));
}

void ChoiceWindow::Finish(const fields::CommandButton& safe, int characters) {
    BindFields();
    TakeSize(characters);
    auto* button = findChild<QPushButton*>(ToQt(safe.Name()));
    button->setDefault(true);
    button->setFocus();
}

AskWindow::AskWindow(session::Session& session, EventGate& gate, QWidget* parent)
    : ChoiceWindow(session, gate, session.forms.frmAsk, parent) {
    const auto& form = session.forms.frmAsk;
    QWidget* panel = MakeDuplicateText(form.parts);
    panel->setObjectName(ToQt(form.lblMain.Name()));
    setAccessibleDescription(Shown(form.lblMain.Caption.Get()));
    AddText(*panel, QStyle::SP_MessageBoxQuestion);
    AddGroups({{"This duplicate",
                {&form.cmdSkip, &form.cmdOverwrite, &form.cmdRename, &form.cmdDeleteReplace}},
               {"This and all that follow",
                {&form.cmdSkipAll, &form.cmdOverwriteAll, &form.cmdRenameAll,
                 &form.cmdDeleteReplaceAll}}});
    AddRow({&form.cmdCancel});
    Tip(form.cmdOverwrite, kOverwriteTip);
    Tip(form.cmdOverwriteAll, kOverwriteTip);
    KeepPlaces({&form.cmdSkip, &form.cmdOverwrite, &form.cmdRename, &form.cmdDeleteReplace,
                &form.cmdSkipAll, &form.cmdOverwriteAll, &form.cmdRenameAll,
                &form.cmdDeleteReplaceAll});
    Finish(form.cmdSkip, 100);
    TakeLastPlace();
}

// A button that this question lacks leaves its room, so that the others don't move.
void AskWindow::KeepPlaces(const QList<const fields::CommandButton*>& buttons) {
    for (const auto* field : buttons) {
        auto* button = findChild<QPushButton*>(ToQt(field->Name()));
        QSizePolicy keeps = button->sizePolicy();
        keeps.setRetainSizeWhenHidden(true);
        button->setSizePolicy(keeps);
    }
}

void AskWindow::TakeLastPlace() {
    const QVariant last = parentWidget() ? parentWidget()->property(kLastPlace) : QVariant();
    if (last.isValid() && screen()->availableGeometry().contains(last.toRect())) {
        setGeometry(last.toRect());
    }
}

// The next question of the kind stands where this one stood.
void AskWindow::hideEvent(QHideEvent* event) {
    if (parentWidget() != nullptr && !event->spontaneous()) {
        parentWidget()->setProperty(kLastPlace, geometry());
    }
    ChoiceWindow::hideEvent(event);
}

LongPathWindow::LongPathWindow(session::Session& session, EventGate& gate, QWidget* parent)
    : ChoiceWindow(session, gate, session.forms.frmAsk259, parent) {
    const auto& form = session.forms.frmAsk259;
    setAccessibleDescription(Shown(form.lblMain.Caption.Get()));
    AddText(*MakeTextWithNote(form.lblMain, form.lblNote), QStyle::SP_MessageBoxWarning);
    AddGroups({{"This object", {&form.cmdSkip, &form.cmdContinue}},
               {"This and all that follow", {&form.cmdSkipAll, &form.cmdContinueAll}}});
    AddRow({&form.cmdCancel});
    Finish(form.cmdSkip, 90);
}

OverrideWindow::OverrideWindow(session::Session& session, EventGate& gate,
                               fields::OverrideForm& form, QWidget* parent)
    : ChoiceWindow(session, gate, form, parent) {
    setAccessibleDescription(Shown(form.lblMain.Caption.Get()));
    const bool isRecycle = &form == &session.forms.frmOverrideRecycleFail;
    AddText(*MakeText(form.lblMain),
            isRecycle ? QStyle::SP_MessageBoxCritical : QStyle::SP_MessageBoxWarning);
    AddRow({&form.cmdNo, &form.cmdYes, &form.cmdNoToAll, &form.cmdYesToAll, &form.cmdCancel});
    if (isRecycle) {
        Tip(form.cmdYes, "Deletes it permanently: it can't be brought back.", "dialog-warning");
        Tip(form.cmdYesToAll,
            "Deletes this and all that follow permanently: they can't be brought back.",
            "dialog-warning");
    }
    Finish(form.cmdNo, 80);
}

} // namespace tarvix::forms
