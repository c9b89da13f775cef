#pragma once

#include "forms/modal_window.h"

namespace tarvix::forms {

// frmSelectDate: one moment, or two for a range.
class DateWindow : public ModalWindow {
  public:
    DateWindow(session::Session& session, EventGate& gate, QWidget* parent);
};

} // namespace tarvix::forms
