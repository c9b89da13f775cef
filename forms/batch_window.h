#pragma once

#include "forms/modal_window.h"

class QTableView;

namespace tarvix::forms {

// frmBatch: a batch line by line, before it starts or after it has ended.
class BatchWindow : public ModalWindow {
  public:
    BatchWindow(session::Session& session, EventGate& gate, QWidget* parent);

  private:
    QTableView* MakeTable();
};

} // namespace tarvix::forms
