#pragma once

#include "forms/modal_window.h"

#include <vector>

class QMenu;

namespace tarvix::fields {
struct MenuItem;
}

namespace tarvix::forms {

// frmContextMenu as a menu, where the list was clicked.
class ContextMenuWindow : public ModalWindow {
  public:
    ContextMenuWindow(session::Session& session, EventGate& gate, QWidget* parent);

    void Run() override;
    void Flush() override {}
    void Idle() override {}

  private:
    void Fill(QMenu& menu, const std::vector<fields::MenuItem>& items);

    int chosen_ = -1;
};

} // namespace tarvix::forms
