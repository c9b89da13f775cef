#pragma once

#include "forms/modal_window.h"

#include <QModelIndexList>

class QCheckBox;
class QLabel;
class QLineEdit;
class QTableView;

namespace tarvix::forms {

class LinkTableModel;

// frmLinkTable: the values of shortcuts in a table, with find and replace and fill down in the
// selected cells, or in all of them where no more than one is selected.
class LinkTableWindow : public ModalWindow {
  public:
    LinkTableWindow(session::Session& session, EventGate& gate, QWidget* parent);

  private:
    QWidget* MakeReplaceRow();
    QTableView* MakeTable();
    QWidget* MakeButtons();
    QModelIndexList ChosenCells() const;
    void ReplaceAll();
    void ShowCount(const QString& done);

    LinkTableModel* model_;
    QTableView* table_ = nullptr;
    QLineEdit* find_ = nullptr;
    QLineEdit* with_ = nullptr;
    QCheckBox* pattern_ = nullptr;
    QCheckBox* case_ = nullptr;
    QLabel* count_ = nullptr;
};

} // namespace tarvix::forms
