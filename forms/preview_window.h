#pragma once

#include "forms/modal_window.h"

#include <QTimer>

class QComboBox;
class QLineEdit;
class QTableView;

namespace tarvix::forms {

class PreviewModel;

// frmPreview: what an action would do, object by object; some of it by verdict or by a part of the
// paths.
class PreviewWindow : public ModalWindow {
  public:
    PreviewWindow(session::Session& session, EventGate& gate, QWidget* parent);

  private:
    QWidget* MakeFolders();
    QWidget* MakeFilters();
    QTableView* MakeTable();
    void ApplyFilters();

    PreviewModel* model_;
    QComboBox* verdict_ = nullptr;
    QLineEdit* part_ = nullptr;
    QTimer pause_; // between typing and looking through all rows
};

} // namespace tarvix::forms
