#pragma once

#include "forms/qt/modal_window.h"

class QLabel;
class QProgressBar;

namespace tarvix::qt {

// frmDialog: the request for the whole selection, told as a sentence; where to, and its progress.
class ActionWindow : public ModalWindow {
  public:
    ActionWindow(session::Session& session, EventGate& gate, QWidget* parent);

  protected:
    void Refresh() override;

  private:
    QWidget* MakeDestination();
    QWidget* MakeChoices();
    QWidget* MakeProgress();
    QWidget* MakeButtons();
    QString Sentence() const;

    QLabel* sentence_ = nullptr;
    QProgressBar* bytes_ = nullptr;
};

} // namespace tarvix::qt
