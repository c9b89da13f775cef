#include "forms/row_delegate.h"

#include "forms/text_conversion.h"
#include "results/row_selector.h"

#include <QPainter>
#include <QTableView>

namespace tarvix::forms {

RowDelegate::RowDelegate(QTableView& view, const results::RowSelector& selector)
    : QStyledItemDelegate(&view), view_(view), selector_(selector) {}

void RowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    const bool selected = selector_.IsSelected(static_cast<std::size_t>(index.row()));
    option->state.setFlag(QStyle::State_Selected, selected);
    option->state.setFlag(QStyle::State_HasFocus, false);
    option->state.setFlag(QStyle::State_MouseOver, false);
    if (results::kColumns[static_cast<std::size_t>(index.column())].rightAlign) {
        option->text = WithoutLeadingZeros(option->text) + QChar(QChar::Nbsp);
    }
}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    if (index.row() != view_.currentIndex().row() || !view_.hasFocus()) return;
    const bool selected = selector_.IsSelected(static_cast<std::size_t>(index.row()));
    painter->setPen(
        option.palette.color(selected ? QPalette::HighlightedText : QPalette::Highlight));
    painter->drawLine(option.rect.topLeft(), option.rect.topRight());
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
}

} // namespace tarvix::forms
