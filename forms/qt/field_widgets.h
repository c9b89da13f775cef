#pragma once

#include "forms/fields/controls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

namespace tarvix::qt {

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

  protected:
    void nextCheckState() override {}
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
QPushButton* Make(const forms::CommandButton& field);
FieldCheckBox* Make(const forms::CheckBox& field);
FieldRadioButton* Make(const forms::OptionButton& field);
QComboBox* Make(const forms::ComboBox& field);
QLineEdit* Make(const forms::TextBox& field);
QLabel* Make(const forms::Label& field);
QWidget* Make(const forms::Frame& field);
QDateTimeEdit* Make(const forms::DatePicker& field);
FieldListBox* Make(const forms::ListBox& field);
QProgressBar* Make(const forms::ProgressBar& field);
ElidedLabel* MakeElided(const forms::Label& field);
// A number that is shown with thousands separators.
QLabel* MakeCounter(const forms::Label& field, const QString& meaning);

// Whether numbers in this label get thousands separators.
bool IsCounter(const QLabel& label);

} // namespace tarvix::qt
