#pragma once

#include "forms/modal_window.h"

#include <QStyle>

class QVBoxLayout;

namespace tarvix::fields {
class OverrideForm;
}

namespace tarvix::forms {

// A question with many buttons. The safe one has the focus; Enter presses the one that has it.
class ChoiceWindow : public ModalWindow {
  public:
    struct Group {
        QString title;
        QList<const fields::CommandButton*> buttons;
    };

    ChoiceWindow(session::Session& session, EventGate& gate, fields::Form& form, QWidget* parent);

  protected:
    // The text above the buttons, with an icon beside it; it scrolls when there is no room for it.
    void AddText(QWidget& text, QStyle::StandardPixmap icon);
    // Buttons below each other, one column a group.
    void AddGroups(const QList<Group>& groups);
    void AddRow(const QList<const fields::CommandButton*>& buttons);
    void Tip(const fields::CommandButton& button, const QString& text, const char* icon = "");
    // Joins the fields, takes a width of so many characters, and gives the safe button the focus.
    void Finish(const fields::CommandButton& safe, int characters);

  private:
    QVBoxLayout* column_;
};

// frmAsk: the new place of an object is taken.
class AskWindow : public ChoiceWindow {
  public:
    AskWindow(session::Session& session, EventGate& gate, QWidget* parent);

  protected:
    void hideEvent(QHideEvent* event) override;

  private:
    void KeepPlaces(const QList<const fields::CommandButton*>& buttons);
    void TakeLastPlace();
};

// frmAsk259: a path has grown too long.
class LongPathWindow : public ChoiceWindow {
  public:
    LongPathWindow(session::Session& session, EventGate& gate, QWidget* parent);
};

// frmOverrideDialog and frmOverrideRecycleFail: something would be lost for good.
class OverrideWindow : public ChoiceWindow {
  public:
    OverrideWindow(session::Session& session, EventGate& gate, fields::OverrideForm& form,
                   QWidget* parent);
};

} // namespace tarvix::forms
