#pragma once

#include "forms/modal_window.h"

namespace tarvix::forms {

// frmRuns: the action logs of the runs.
class RunsWindow : public ModalWindow {
  public:
    RunsWindow(session::Session& session, EventGate& gate, QWidget* parent);
};

} // namespace tarvix::forms
