#include "forms/list_box.h"

#include <QKeyEvent>
#include <QMouseEvent>

#include <utility>

namespace tarvix::forms {

namespace {
constexpr int kLines = 6; // where there is room
}

FieldListBox::FieldListBox(QWidget* parent) : QListWidget(parent) {
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize FieldListBox::sizeHint() const {
    return {QListWidget::sizeHint().width(), (fontMetrics().height() + 1) * kLines};
}

QItemSelectionModel::SelectionFlags FieldListBox::selectionCommand(const QModelIndex&,
                                                                   const QEvent*) const {
    return QItemSelectionModel::NoUpdate;
}

void FieldListBox::mouseReleaseEvent(QMouseEvent* event) {
    QListWidget::mouseReleaseEvent(event);
    const bool chooses = event->button() == Qt::LeftButton && !std::exchange(opened_, false);
    const int line = indexAt(event->position().toPoint()).row();
    if (chooses && line >= 0 && onChoose) onChoose(line);
}

void FieldListBox::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    opened_ = true;
    if (onOpen) onOpen(indexAt(event->position().toPoint()).row());
}

void FieldListBox::keyPressEvent(QKeyEvent* event) {
    const bool opens = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Space && currentRow() >= 0) {
        if (onChoose) onChoose(currentRow());
    } else if (opens && onOpen && count() > 0) {
        onOpen(currentRow());
    } else {
        QListWidget::keyPressEvent(event);
    }
}

} // namespace tarvix::forms
