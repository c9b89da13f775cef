#pragma once

#include <QMenu>

namespace tarvix::forms {

// A menu that stays open while its boxes are turned, by the mouse or by Space and Enter.
class StayingMenu : public QMenu {
  public:
    using QMenu::QMenu;

  protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace tarvix::forms
