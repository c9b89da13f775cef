#pragma once

#include "fields/prompt_forms.h"

#include <QAbstractTableModel>

namespace tarvix::forms {

// The rows of frmBatch, a line of the batch each: its plan, or what was done. The rows themselves
// stay where they are.
class BatchModel : public QAbstractTableModel {
  public:
    explicit BatchModel(const fields::FrmBatch& form, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    const fields::FrmBatch& form_;
};

} // namespace tarvix::forms
