#pragma once

#include "forms/modal_window.h"

namespace tarvix::forms {

// frmWelcome: what a first start tells.
class WelcomeWindow : public ModalWindow {
  public:
    WelcomeWindow(session::Session& session, EventGate& gate, QWidget* parent);
};

} // namespace tarvix::forms
