#pragma once

#include "forms/modal_window.h"

namespace tarvix::forms {

// frmUnread: what the last search could not read.
class UnreadWindow : public ModalWindow {
  public:
    UnreadWindow(session::Session& session, EventGate& gate, QWidget* parent);
};

} // namespace tarvix::forms
