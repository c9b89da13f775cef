#pragma once

#include "fields/controls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

namespace tarvix::forms {

class FieldListBox;

// A box whose mark follows its field: a click only says that it was clicked.
class FieldCheckBox : public QCheckBox {
  public:
    using QCheckBox::QCheckBox;

  protected:
    void nextCheckState() override {}
};

// The same for one choice of several.
class FieldRadioButton : public QRadioButton {
  public:
    using QRadioButton::QRadioButton;
    // Whether an arrow key is what clicks one of them just now.
    static bool IsByArrow();

  protected:
    void nextCheckState() override {}
    void keyPressEvent(QKeyEvent* event) override;
};

// The same for a box of which one of several is set; one that is set stays so when it is clicked.
class FieldChoiceButton : public FieldRadioButton {
  public:
    using FieldRadioButton::FieldRadioButton;
};

// A line of text that is cut in the middle where it does not fit; the tip shows it whole.
class ElidedLabel : public QLabel {
  public:
    explicit ElidedLabel(QWidget* parent = nullptr);
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
};

// The widget for a field, bearing its name. A binder fills it and connects it.
QPushButton* Make(const fields::CommandButton& field);
FieldCheckBox* Make(const fields::CheckBox& field);
FieldRadioButton* Make(const fields::OptionButton& field);
FieldChoiceButton* MakeChoice(const fields::CheckBox& field);
QComboBox* Make(const fields::ComboBox& field);
QLineEdit* Make(const fields::TextBox& field);
QLabel* Make(const fields::Label& field);
QWidget* Make(const fields::Frame& field);
QDateTimeEdit* Make(const fields::DatePicker& field);
FieldListBox* Make(const fields::ListBox& field);
QProgressBar* Make(const fields::ProgressBar& field);
ElidedLabel* MakeElided(const fields::Label& field);
// A number that is shown with thousands separators.
QLabel* MakeCounter(const fields::Label& field, const QString& meaning);

// Whether numbers in this label get thousands separators.
bool IsCounter(const QLabel& label);

} // namespace tarvix::forms
