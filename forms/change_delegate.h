#pragma once

#include <QStyledItemDelegate>

namespace tarvix::forms {

// Paints a cell of a preview with what changed marked: gone characters struck out, new ones bold on
// a ground of their own. What has no room is cut where old and new agree.
class ChangeDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};

} // namespace tarvix::forms
