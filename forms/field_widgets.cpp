#include "forms/field_widgets.h"

#include "forms/attribute_box.h"
#include "forms/completion.h"
#include "forms/list_box.h"
#include "forms/text_conversion.h"
#include "session/native_entry.h"

#include <QCoreApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace tarvix::forms {

namespace {

constexpr char kCounterMark[] = "counter";
constexpr char kByArrow[] = "choosesByArrow";

template <class T>
T* Named(T* widget, const fields::Control& field) {
    widget->setObjectName(ToQt(field.Name()));
    return widget;
}

void MakePlain(QLabel& label) {
    label.setTextFormat(Qt::PlainText);
    label.setTextInteractionFlags(Qt::NoTextInteraction);
}

} // namespace

bool FieldRadioButton::IsByArrow() {
    return QCoreApplication::instance()->property(kByArrow).toBool();
}

void FieldRadioButton::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    const bool isArrow = key >= Qt::Key_Left && key <= Qt::Key_Down;
    QCoreApplication::instance()->setProperty(kByArrow, isArrow);
    QRadioButton::keyPressEvent(event);
    QCoreApplication::instance()->setProperty(kByArrow, false);
}

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

QSize ElidedLabel::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 4, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect room = contentsRect();
    const QString cut =
        fontMetrics().elidedText(text().simplified(), Qt::ElideMiddle, room.width());
    style()->drawItemText(&painter, room, static_cast<int>(alignment()), palette(), isEnabled(),
                          cut, foregroundRole());
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || !toolTip().isEmpty()) return QLabel::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const bool cut = fontMetrics().horizontalAdvance(text()) > contentsRect().width();
    QToolTip::showText(help->globalPos(), cut ? TipText(text()) : QString(), this);
    return true;
}

QPushButton* Make(const fields::CommandButton& field) {
    auto* button = Named(new QPushButton, field);
    button->setAutoDefault(false);
    return button;
}

FieldCheckBox* Make(const fields::CheckBox& field) {
    if (field.IsTriState()) return new AttributeBox(field, "Objects with this attribute");
    return Named(new FieldCheckBox, field);
}

FieldRadioButton* Make(const fields::OptionButton& field) {
    return Named(new FieldRadioButton, field);
}

FieldChoiceButton* MakeChoice(const fields::CheckBox& field) {
    return Named(new FieldChoiceButton, field);
}

QComboBox* Make(const fields::ComboBox& field) {
    auto* box = Named(new QComboBox, field);
    box->setEditable(field.IsEditable());
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setMaxVisibleItems(24);
    box->setFocusPolicy(Qt::StrongFocus);
    if (field.IsEditable()) {
        if (!session::TakesPaths(field)) OfferCompletion(*box);
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box->setMinimumContentsLength(16);
    }
    return box;
}

QLineEdit* Make(const fields::TextBox& field) {
    return Named(new QLineEdit, field);
}

QLabel* Make(const fields::Label& field) {
    auto* label = Named(new QLabel, field);
    MakePlain(*label);
    return label;
}

QWidget* Make(const fields::Frame& field) {
    return Named(new QWidget, field);
}

QDateTimeEdit* Make(const fields::DatePicker& field) {
    auto* picker = Named(new QDateTimeEdit, field);
    picker->setDisplayFormat(field.IsTime() ? "HH:mm:ss" : "yyyy/MM/dd");
    picker->setCalendarPopup(!field.IsTime());
    return picker;
}

FieldListBox* Make(const fields::ListBox& field) {
    return Named(new FieldListBox, field);
}

QProgressBar* Make(const fields::ProgressBar& field) {
    return Named(new QProgressBar, field);
}

ElidedLabel* MakeElided(const fields::Label& field) {
    auto* label = Named(new ElidedLabel, field);
    MakePlain(*label);
    return label;
}

QLabel* MakeCounter(const fields::Label& field, const QString& meaning) {
    auto* label = Make(field);
    label->setProperty(kCounterMark, true);
    label->setAccessibleName(meaning);
    label->setToolTip(meaning);
    return label;
}

bool IsCounter(const QLabel& label) {
    return label.property(kCounterMark).toBool();
}

} // namespace tarvix::forms
