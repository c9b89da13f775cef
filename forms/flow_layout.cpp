#include "forms/flow_layout.h"

#include <algorithm>

namespace tarvix::forms {

FlowLayout::FlowLayout(int horizontal, int vertical)
    : horizontal_(horizontal), vertical_(vertical) {
    setContentsMargins(0, 0, 0, 0);
}

FlowLayout::~FlowLayout() {
    for (QLayoutItem* item : items_) {
        delete item;
    }
}

QLayoutItem* FlowLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)] : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index) {
    QLayoutItem* item = itemAt(index);
    if (item != nullptr) items_.erase(items_.begin() + index);
    return item;
}

QSize FlowLayout::minimumSize() const {
    QSize size;
    for (const QLayoutItem* item : items_) {
        if (!item->isEmpty()) size = size.expandedTo(item->minimumSize());
    }
    const QMargins margins = contentsMargins();
    return size + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

void FlowLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    Place(rect, true);
}

void FlowLayout::CenterLine(std::size_t first, std::size_t last, int y, int height) const {
    for (std::size_t i = first; i < last; ++i) {
        if (items_[i]->isEmpty()) continue;
        QRect place = items_[i]->geometry();
        place.moveTop(y + (height - place.height()) / 2);
        items_[i]->setGeometry(place);
    }
}

int FlowLayout::Place(const QRect& rect, bool move) const {
    const QRect room = rect.marginsRemoved(contentsMargins());
    int x = room.x(), y = room.y(), lineHeight = 0;
    std::size_t lineStart = 0;
    for (std::size_t i = 0; i < items_.size(); ++i) {
        if (items_[i]->isEmpty()) continue;
        const QSize size = items_[i]->sizeHint().boundedTo(QSize(room.width(), QLAYOUTSIZE_MAX));
        if (x > room.x() && x + size.width() > room.x() + room.width()) {
            if (move) CenterLine(lineStart, i, y, lineHeight);
            x = room.x();
            y += lineHeight + vertical_;
            lineHeight = 0;
            lineStart = i;
        }
        if (move) items_[i]->setGeometry({QPoint(x, y), size});
        x += size.width() + horizontal_;
        lineHeight = std::max(lineHeight, size.height());
    }
    if (move) CenterLine(lineStart, items_.size(), y, lineHeight);
    return y + lineHeight - rect.y() + contentsMargins().bottom();
}

} // namespace tarvix::forms
