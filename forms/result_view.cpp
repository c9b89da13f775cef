#include "forms/result_view.h"

#include "forms/frozen_head.h"
#include "forms/row_delegate.h"
#include "forms/text_conversion.h"
#include "results/list_looks.h"

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
constexpr int kRuleHeight = 4;   // pixels
constexpr double kFrozenEdge = 0.25;

} // namespace

ResultView::ResultView(results::ResultList& rows, QWidget* parent)
    : QTableView(parent), rows_(rows), head_(*this), selector_(rows) {
    setSelectionMode(NoSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setItemDelegate(new RowDelegate(*this));
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    setTextElideMode(Qt::ElideMiddle);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    SetRowHeight();
}

void ResultView::SetRowHeight() {
    const int height = fontMetrics().height() + 5;
    verticalHeader()->setMinimumSectionSize(0);
    verticalHeader()->setDefaultSectionSize(height);
    verticalScrollBar()->setSingleStep(height);
    if (model() != nullptr) LayOutRows(0);
}

void ResultView::setModel(QAbstractItemModel* model) {
    QTableView::setModel(model);
    connect(model, &QAbstractItemModel::modelReset, this, [this] { LayOutRows(0); });
    connect(model, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex&, int first) { LayOutRows(first); });
    LayOutRows(0);
}

// A spacer tells by its neighbours whether it is a rule, so those in front of the first new row are
// looked at again. The head is told nothing of each: 125,000 spacers take milliseconds.
void ResultView::LayOutRows(int first) {
    if (first == 0) {
        hasSpacers_ = hasGroups_ = hasLaterPatterns_ = false;
        lookedAt_ = 0;
    }
    const auto isLater = [](const auto& row) { return results::LaterPattern(row) > 0; };
    hasLaterPatterns_ |= std::ranges::any_of(rows_.Added().From(lookedAt_), isLater);
    lookedAt_ = rows_.Added().size();
    QHeaderView& heights = *verticalHeader();
    const QSignalBlocker quiet(heights);
    heights.setUpdatesEnabled(false);
    for (int row = std::max(0, first - 2); row < model()->rowCount(); ++row) {
        const auto at = static_cast<std::size_t>(row);
        int height = heights.defaultSectionSize();
        if (rows_.IsSpacer(at)) {
            const bool isRule = results::DividesGroups(rows_, at);
            height = isRule ? kRuleHeight : 0;
            hasSpacers_ = true;
            hasGroups_ |= isRule;
        }
        heights.resizeSection(row, height); // the head keeps heights when rows change places
    }
    heights.setUpdatesEnabled(true);
    updateGeometries();
}

bool ResultView::IsStriped(std::size_t row) const {
    return !hasGroups_ && (hasSpacers_ ? row / 2 : row) % 2 == 1;
}

void ResultView::ScrollHome() {
    verticalScrollBar()->setValue(0);
    horizontalScrollBar()->setValue(0);
}

QModelIndex ResultView::indexAt(const QPoint& at) const {
    const QModelIndex index = QTableView::indexAt(at);
    const bool isName = at.x() >= 0 && at.x() < head_.FrozenWidth();
    return isName && index.isValid() ? index.siblingAtColumn(results::kName) : index;
}

QRect ResultView::visualRect(const QModelIndex& index) const {
    QRect place = QTableView::visualRect(index);
    const int frozen = index.column() == results::kName ? head_.FrozenWidth() : 0;
    if (frozen > 0) place = {0, place.top(), frozen, place.height()};
    return place;
}

// The name is always in view, so a row is scrolled to without going sideways.
void ResultView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    const int x = horizontalScrollBar()->value();
    QTableView::scrollTo(index, hint);
    if (index.column() == results::kName) horizontalScrollBar()->setValue(x);
}

void ResultView::scrollContentsBy(int x, int y) {
    QTableView::scrollContentsBy(x, y);
    if (x == 0) return;
    viewport()->update(); // the name that stays must not be moved along
    horizontalHeader()->viewport()->update();
}

void ResultView::PaintFrozenName() {
    const int width = head_.FrozenWidth();
    if (width == 0 || model() == nullptr) return;
    QPainter painter(viewport());
    painter.setClipRect(0, 0, width, viewport()->height());
    painter.fillRect(0, 0, width, viewport()->height(), palette().brush(QPalette::Base));
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.state.setFlag(QStyle::State_Active, isActiveWindow());
    const int last = rowAt(viewport()->height() - 1);
    const int end = last < 0 ? model()->rowCount() : last + 1;
    for (int row = std::max(0, rowAt(0)); row < end; ++row) {
        option.rect = {0, rowViewportPosition(row), width - 1, rowHeight(row)};
        if (option.rect.height() > 0) {
            itemDelegate()->paint(&painter, option, model()->index(row, results::kName));
        }
    }
    QColor edge = palette().color(QPalette::Text);
    edge.setAlphaF(kFrozenEdge);
    painter.fillRect(width - 1, 0, 1, viewport()->height(), edge);
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
    selectionModel()->setCurrentIndex(model()->index(static_cast<int>(row), results::kName),
                                      QItemSelectionModel::NoUpdate);
}

void ResultView::TellCurrent() {
    QItemSelectionModel& told = *selectionModel();
    const auto row = CurrentRow();
    if (!row || !selector_.IsSelected(*row)) {
        if (told.hasSelection()) told.clearSelection();
    } else if (!told.isSelected(currentIndex())) {
        told.select(currentIndex(),
                    QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
}

void ResultView::Changed(std::size_t row) {
    TellCurrent();
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

// As far as the view shows, less a row, whatever the rules between the rows take.
std::optional<std::size_t> ResultView::PageFrom(std::size_t row, int direction) const {
    const QHeaderView& heights = *verticalHeader();
    const int page =
        std::max(heights.defaultSectionSize(), viewport()->height() - heights.defaultSectionSize());
    const int place = rowViewportPosition(static_cast<int>(row)) + direction * page;
    const int there = heights.logicalIndexAt(std::max(place, -heights.offset()));
    if (there < 0) return selector_.End(true);
    const auto target = static_cast<std::size_t>(there);
    if (target != row && selector_.CanSelect(target)) return target;
    return selector_.Neighbour(target, target == row ? direction : -direction);
}

std::optional<std::size_t> ResultView::KeyTarget(int key) const {
    const auto current = CurrentRow();
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
        return current ? PageFrom(*current, -1) : std::nullopt;
    case Qt::Key_PageDown:
        return current ? PageFrom(*current, 1) : std::nullopt;
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
    PaintFrozenName();
    if (model() == nullptr || model()->rowCount() > 0 || !emptyText) return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(20, 10, -20, -10),
                     Qt::AlignCenter | Qt::TextWordWrap, emptyText());
}

} // namespace tarvix::forms
