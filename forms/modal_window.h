#pragma once

#include "forms/binder.h"
#include "forms/event_gate.h"

#include <QDialog>

#include <memory>

namespace tarvix::forms {

// A window over one form that stays until the form hides. Closing it presses its cancel button, or
// OK where there is no other.
class ModalWindow : public QDialog, public View {
  public:
    ModalWindow(session::Session& session, EventGate& gate, fields::Form& form, QWidget* parent);
    ~ModalWindow() override;

    // Shows the window and returns when the form has hidden.
    virtual void Run();
    void Flush() override;
    void Idle() override;
    void reject() override;

  protected:
    // Joins the widgets to the fields; called at the end of a constructor.
    void BindFields();
    // Becomes wide enough for so many characters and as high as the content, within the screen.
    void TakeSize(int characters);
    virtual void Refresh() {}
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

    session::Session& session_;
    EventGate& gate_;
    fields::Form& form_;
    std::unique_ptr<Binder> binder_;
};

// The window for a form; null for a form that has none.
std::unique_ptr<ModalWindow> MakeModalWindow(session::Session& session, EventGate& gate,
                                             fields::Form& form, QWidget* parent);

} // namespace tarvix::forms
