#pragma once

#include <QDialog>
#include <QString>

class QLayout;
class QPushButton;

namespace tarvix::forms {

// What a message says: `plain`, with `text` under Details; `text` alone where that is empty. `verb`
// stands on the button that goes ahead, and the other one is Cancel then. In a loop over objects
// its buttons say what becomes of this one, of all like it, and of the rest.
struct MessageText {
    QString plain;
    QString text;
    QString verb = {};
    bool isInLoop = false;
};

// A message with the icon and buttons of a style number; plain text that scrolls when it is long.
class MessageDialog : public QDialog {
  public:
    MessageDialog(const MessageText& text, int style, const QString& title, QWidget* parent);
    // The answer; closing the box gives the style's safe one.
    int Ask();

  private:
    QWidget* MakeIcon(int style);
    QWidget* MakeButtons(const MessageText& text, int style);
    QPushButton* AddButton(QWidget& row, int answer, const QString& caption);
    void AddDetails(QLayout& column, QWidget& buttons, const QString& text);

    int answer_;
    QPushButton* first_ = nullptr; // has the focus when the box opens
};

// A text that wraps and can be copied, in a field that scrolls once it is higher than a part of
// the screen.
QWidget* MakeLongText(const QString& text, const QString& name, QWidget* parent);

} // namespace tarvix::forms
