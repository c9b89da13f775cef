#include "forms/result_view.h"

#include "forms/row_delegate.h"
#include "forms/text_conversion.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace tarvix::forms {

namespace {

constexpr int kTypePause = 1000; // milliseconds until typed letters begin a new word

} // namespace

ResultView::ResultView(results::ResultList& rows, QWidget* parent)
    : QTableView(parent), head_(*this), selector_(rows) {
    setSelectionMode(NoSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setItemDelegate(new RowDelegate(*this, selector_));
    setShowGrid(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setTextElideMode(Qt::ElideMiddle);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    SetRowHeight();
}

void ResultView::SetRowHeight() {
    const int height = fontMetrics().height() + 5;
    verticalHeader()->setMinimumSectionSize(height);
    verticalHeader()->setDefaultSectionSize(height);
}

void ResultView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) SetRowHeight();
}

void ResultView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    viewport()->update();
}

std::optional<std::size_t> ResultView::CurrentRow() const {
    const auto row = static_cast<std::size_t>(currentIndex().row());
    return currentIndex().isValid() && selector_.CanSelect(row) ? std::optional(row) : std::nullopt;
}

std::optional<std::size_t> ResultView::RowAt(const QPoint& at) const {
    const int row = rowAt(at.y());
    if (row < 0 || !selector_.CanSelect(static_cast<std::size_t>(row))) return std::nullopt;
    return static_cast<std::size_t>(row);
}

void ResultView::SetCurrentRow(std::size_t row) {
    // The name's cell is always the current one, so that a row is read from its name on.
    const int x = horizontalScrollBar()->value();
    selectionModel()->setCurrentIndex(model()->index(static_cast<int>(row), results::kName),
                                      QItemSelectionModel::NoUpdate);
    horizontalScrollBar()->setValue(x);
}

void ResultView::Changed(std::size_t row) {
    // Screen readers ask the selection model; it knows the current row.
    const auto how = selector_.IsSelected(row) ? QItemSelectionModel::ClearAndSelect
                                               : QItemSelectionModel::Clear;
    selectionModel()->select(model()->index(static_cast<int>(row), results::kName),
                             how | QItemSelectionModel::Rows);
    viewport()->update();
    if (onSelect) onSelect(row);
}

void ResultView::MoveTo(std::size_t row, Qt::KeyboardModifiers modifiers) {
    if (!MaySelect()) return;
    SetCurrentRow(row);
    if (modifiers & Qt::ShiftModifier) {
        selector_.ExtendTo(row, (modifiers & Qt::ControlModifier) != 0);
    } else if (modifiers & Qt::ControlModifier) {
        return; // only the current row moves
    } else {
        selector_.SelectOnly(row);
    }
    Changed(row);
}

void ResultView::mousePressEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    pressedAt_ = at;
    pressedRow_ = MaySelect() ? RowAt(at) : std::nullopt;
    selectOnRelease_ = false;
    event->accept();
    if (!pressedRow_) return;
    const std::size_t row = *pressedRow_;
    const bool alone = !(event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier));
    if (alone && selector_.IsSelected(row)) {
        SetCurrentRow(row);
        selectOnRelease_ = event->button() == Qt::LeftButton;
    } else if (alone || event->modifiers() & Qt::ShiftModifier) {
        MoveTo(row, event->modifiers());
    } else {
        SetCurrentRow(row);
        selector_.Toggle(row);
        Changed(row);
    }
}

void ResultView::mouseMoveEvent(QMouseEvent* event) {
    if (!(event->buttons() & Qt::LeftButton) || !pressedRow_ || !MaySelect()) return;
    const QPoint at = event->position().toPoint();
    if (selectOnRelease_) {
        const int far = QApplication::startDragDistance();
        if ((at - pressedAt_).manhattanLength() < far || !onDrag) return;
        pressedRow_.reset();
        onDrag();
        return;
    }
    const int y = std::clamp(at.y(), 0, viewport()->height() - 1);
    const auto row = RowAt({at.x(), y});
    if (row && row != CurrentRow()) {
        MoveTo(*row, Qt::ShiftModifier | (event->modifiers() & Qt::ControlModifier));
    }
}

void ResultView::mouseReleaseEvent(QMouseEvent* event) {
    if (selectOnRelease_ && pressedRow_ && event->button() == Qt::LeftButton && MaySelect()) {
        selector_.SelectOnly(*pressedRow_);
        Changed(*pressedRow_);
    }
    selectOnRelease_ = false;
    pressedRow_.reset();
}

void ResultView::mouseDoubleClickEvent(QMouseEvent* event) {
    const auto row = RowAt(event->position().toPoint());
    if (row && onOpen && MaySelect() && event->button() == Qt::LeftButton) onOpen(*row);
}

std::optional<std::size_t> ResultView::KeyTarget(int key) const {
    const auto current = CurrentRow();
    const int page = std::max(1, viewport()->height() / verticalHeader()->defaultSectionSize() - 1);
    switch (key) {
    case Qt::Key_Home:
        return selector_.End(false);
    case Qt::Key_End:
        return selector_.End(true);
    case Qt::Key_Up:
        return current ? selector_.Neighbour(*current, -1) : selector_.End(false);
    case Qt::Key_Down:
        return current ? selector_.Neighbour(*current, 1) : selector_.End(false);
    case Qt::Key_PageUp:
        return current ? selector_.Neighbour(*current, -page) : std::nullopt;
    case Qt::Key_PageDown:
        return current ? selector_.Neighbour(*current, page) : std::nullopt;
    default:
        return std::nullopt;
    }
}

void ResultView::keyPressEvent(QKeyEvent* event) {
    const auto current = CurrentRow();
    QScrollBar& sideways = *horizontalScrollBar();
    event->accept();
    if (const auto target = KeyTarget(event->key())) {
        MoveTo(*target, event->modifiers());
    } else if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) {
        const int step = event->key() == Qt::Key_Left ? -60 : 60;
        sideways.setValue(sideways.value() + step);
    } else if (event->key() == Qt::Key_Space && typed_.isEmpty() && current && MaySelect()) {
        if (event->modifiers() & Qt::ControlModifier)
            selector_.Toggle(*current);
        else
            selector_.SelectOnly(*current);
        Changed(*current);
    } else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && current) {
        if (onOpen && MaySelect()) onOpen(*current);
    } else if (!event->text().isEmpty() && event->text()[0].isPrint() &&
               !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
        keyboardSearch(event->text());
    } else {
        event->ignore();
    }
}

void ResultView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (!onMenu || !MaySelect()) return;
    if (event->reason() == QContextMenuEvent::Keyboard) {
        const QRect row = visualRect(currentIndex()) & viewport()->rect();
        menuPlace_ = viewport()->mapToGlobal(row.isValid() ? row.bottomLeft() : QPoint());
    } else {
        menuPlace_ = event->globalPos();
        if (!RowAt(event->pos())) return;
    }
    onMenu();
}

void ResultView::keyboardSearch(const QString& text) {
    if (model() == nullptr || model()->rowCount() == 0) return;
    if (!sinceTyped_.isValid() || sinceTyped_.elapsed() > kTypePause) typed_.clear();
    sinceTyped_.start();
    const bool goOn = !typed_.isEmpty() && typed_ != text; // the same letter again steps onward
    typed_ = goOn ? typed_ + text : text;
    const auto found =
        selector_.StartingWith(ToUtf8(typed_), CurrentRow().value_or(0), goOn || !CurrentRow());
    if (found) MoveTo(*found, Qt::NoModifier);
}

void ResultView::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (model() == nullptr || model()->rowCount() > 0 || !emptyText) return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(20, 10, -20, -10),
                     Qt::AlignCenter | Qt::TextWordWrap, emptyText());
}

} // namespace tarvix::forms
