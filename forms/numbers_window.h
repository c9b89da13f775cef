#pragma once

#include "forms/modal_window.h"

namespace tarvix::forms {

// frmNumbers: the lines of a numeric increment, with those that it gives below.
class NumbersWindow : public ModalWindow {
  public:
    NumbersWindow(session::Session& session, EventGate& gate, QWidget* parent);

  private:
    QWidget* MakeFields();
};

} // namespace tarvix::forms
