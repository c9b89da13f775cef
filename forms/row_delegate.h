#pragma once

#include "forms/list_colors.h"
#include "results/columns.h"

#include <QStyledItemDelegate>

#include <array>
#include <optional>

namespace tarvix::results {
struct ResultRow;
}

namespace tarvix::forms {

class ResultView;

// Paints a row of the list by its own flags: selected where its flag is set, a frame along the
// current row, a rule where groups part, a sign in front of the name, numbers without the zeros
// that they carry for sorting. What has no room is cut where it agrees with others, and has a tip.
class RowDelegate : public QStyledItemDelegate {
  public:
    explicit RowDelegate(ResultView& view);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

    // A cell's text as it is shown where there is room for all of it.
    static QString WholeText(const QModelIndex& index);

  private:
    const SignLook& LookOfRow(const results::ResultRow& row) const;
    void PaintSpacer(QPainter& painter, const QRect& place) const;
    void PaintGround(QPainter& painter, const QStyleOptionViewItem& option, std::size_t row,
                     bool isSelected) const;
    void PaintSign(QPainter& painter, const QStyleOptionViewItem& option, std::size_t row,
                   const QColor& color) const;
    void PaintText(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                   const QColor& color) const;
    QRect TextPlace(const QRect& cell, int column) const;
    int SignWidth() const;
    QString CutToFit(const QFontMetrics& metrics, const QString& text, int column, int width) const;

    ResultView& list_;
    mutable std::array<std::optional<SignLook>, results::kRowSigns> looks_; // once they were shown
};

} // namespace tarvix::forms
