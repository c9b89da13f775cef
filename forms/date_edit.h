#pragma once

#include <QLineEdit>

class QMenu;

namespace tarvix::fields {
class DateLabel;
class TextBox;
} // namespace tarvix::fields

namespace tarvix::forms {

// A box that takes a date or words for one, with a menu of both: a calendar, and the usual words.
// Alt+Down opens it. Its tip says which moment the text means.
class DateEdit : public QLineEdit {
  public:
    DateEdit(const fields::TextBox& field, const fields::DateLabel& meant, const QString& name);

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void FillMenu(QMenu& menu);
    void OpenMenu();
    void Choose(const QString& text);

    const fields::DateLabel& meant_;
};

} // namespace tarvix::forms
