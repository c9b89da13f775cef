#pragma once

#include "forms/modal_window.h"

namespace tarvix::forms {

// frmOpenWith: all applications, narrowed as a name is typed.
class OpenWithWindow : public ModalWindow {
  public:
    OpenWithWindow(session::Session& session, EventGate& gate, QWidget* parent);
};

} // namespace tarvix::forms
