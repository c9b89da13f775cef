#pragma once

#include "forms/qt/modal_window.h"

namespace tarvix::qt {

// frmSelectDate: one moment, or two for a range.
class DateWindow : public ModalWindow {
  public:
    DateWindow(session::Session& session, EventGate& gate, QWidget* parent);
};

} // namespace tarvix::qt
