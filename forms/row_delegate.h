#pragma once

#include <QStyledItemDelegate>

class QTableView;

namespace tarvix::results {
class RowSelector;
}

namespace tarvix::forms {

// Paints a cell: selected where its row's flag is set, a frame along the current row, numbers
// without the zeros that they carry for sorting.
class RowDelegate : public QStyledItemDelegate {
  public:
    RowDelegate(QTableView& view, const results::RowSelector& selector);
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

  private:
    const QTableView& view_;
    const results::RowSelector& selector_;
};

} // namespace tarvix::forms
