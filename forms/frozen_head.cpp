#include "forms/frozen_head.h"

#include "results/columns.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace tarvix::forms {

FrozenHead::FrozenHead(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

int FrozenHead::FrozenWidth() const {
    if (count() == 0 || sectionViewportPosition(results::kName) >= 0) return 0;
    return std::min(sectionSize(results::kName), viewport()->width() / 2);
}

int FrozenHead::ColumnAt(int x) const {
    return IsFrozenAt(x) ? int{results::kName} : logicalIndexAt(x);
}

int FrozenHead::TitleWidth(int column) const {
    const QString title = model()->headerData(column, Qt::Horizontal).toString();
    const int margin = style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, this);
    const int mark = style()->pixelMetric(QStyle::PM_HeaderMarkSize, nullptr, this);
    if (measured_ != font()) advances_.clear();
    measured_ = font();
    int& advance = advances_[title];
    if (advance == 0) advance = fontMetrics().horizontalAdvance(title);
    return advance + mark + 3 * margin;
}

// Titles are of one line and one font, so one is as high as another: not twenty are measured anew
// each time that a column or a row comes.
QSize FrozenHead::sizeHint() const {
    return count() == 0 ? QHeaderView::sizeHint() : sectionSizeFromContents(logicalIndex(0));
}

void FrozenHead::paintEvent(QPaintEvent* event) {
    QHeaderView::paintEvent(event);
    const int width = FrozenWidth();
    if (width == 0) return;
    QPainter painter(viewport());
    const QRect place(0, 0, width, viewport()->height());
    painter.fillRect(place, palette().button());
    paintSection(&painter, place, results::kName);
}

template <class Handle>
void FrozenHead::Redirect(QMouseEvent* event, bool isThere, Handle handle) {
    if (!isThere) return handle(event);
    const QPointF shift(sectionViewportPosition(results::kName), 0);
    QMouseEvent moved(event->type(), event->position() + shift, event->globalPosition(),
                      event->button(), event->buttons(), event->modifiers());
    handle(&moved);
}

void FrozenHead::mousePressEvent(QMouseEvent* event) {
    pressedThere_ = IsFrozenAt(event->position().toPoint().x());
    Redirect(event, pressedThere_, [this](QMouseEvent* e) { QHeaderView::mousePressEvent(e); });
}

void FrozenHead::mouseMoveEvent(QMouseEvent* event) {
    const bool isThere = event->buttons() == Qt::NoButton
                             ? IsFrozenAt(event->position().toPoint().x())
                             : pressedThere_;
    Redirect(event, isThere, [this](QMouseEvent* e) { QHeaderView::mouseMoveEvent(e); });
    if (pressedThere_) viewport()->update();
}

void FrozenHead::mouseReleaseEvent(QMouseEvent* event) {
    Redirect(event, pressedThere_, [this](QMouseEvent* e) { QHeaderView::mouseReleaseEvent(e); });
    pressedThere_ = false;
    viewport()->update();
}

void FrozenHead::mouseDoubleClickEvent(QMouseEvent* event) {
    const bool isThere = IsFrozenAt(event->position().toPoint().x());
    Redirect(event, isThere, [this](QMouseEvent* e) { QHeaderView::mouseDoubleClickEvent(e); });
}

bool FrozenHead::viewportEvent(QEvent* event) {
    auto* help = event->type() == QEvent::ToolTip ? static_cast<QHelpEvent*>(event) : nullptr;
    if (help == nullptr || !IsFrozenAt(help->pos().x())) return QHeaderView::viewportEvent(event);
    const QPoint shift(sectionViewportPosition(results::kName), 0);
    QHelpEvent moved(QEvent::ToolTip, help->pos() + shift, help->globalPos());
    return QHeaderView::viewportEvent(&moved);
}

} // namespace tarvix::forms
