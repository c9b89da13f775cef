#include "forms/column_head.h"

#include "forms/frozen_head.h"
#include "forms/letters.h"
#include "forms/staying_menu.h"
#include "forms/text_conversion.h"
#include "results/column_groups.h"

#include <QAction>
#include <QEvent>
#include <QTableView>

#include <algorithm>

namespace tarvix::forms {

namespace {

constexpr int kUsualFontHeight = 17; // pixels, for which the columns' first widths are made

FrozenHead& HeadFor(QTableView& view) {
    auto* head = new FrozenHead(&view);
    view.setHorizontalHeader(head);
    return *head;
}

} // namespace

ColumnHead::ColumnHead(QTableView& view) : view_(view), head_(HeadFor(view)) {
    head_.setSectionsMovable(true);
    head_.setSectionsClickable(true);
    head_.setHighlightSections(false);
    head_.setStretchLastSection(false);
    head_.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    head_.setContextMenuPolicy(Qt::CustomContextMenu);
    view_.viewport()->installEventFilter(this);
    Connect();
}

void ColumnHead::Connect() {
    connect(&head_, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        auto* menu = new StayingMenu(&view_);
        menu->setAttribute(Qt::WA_DeleteOnClose);
        FillMenu(*menu, std::max(0, head_.ColumnAt(at.x())));
        GiveLetters(*menu);
        menu->popup(head_.mapToGlobal(at));
    });
    connect(&head_, &QHeaderView::sectionClicked, this, [this](int column) {
        if (onClick) onClick(column);
    });
    connect(&head_, &QHeaderView::sectionCountChanged, this, [this](int before, int now) {
        if (before == 0 && now > 0) Take({});
    });
    connect(&head_, &QHeaderView::sectionResized, this,
            [this](int column, int, int width) { Resized(column, width); });
    connect(&head_, &QHeaderView::sectionMoved, this, [this] { SpreadSpare(); });
}

bool ColumnHead::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) SpreadSpare();
    return QObject::eventFilter(watched, event);
}

int ColumnHead::UsualWidth(int column) const {
    const int width = results::kColumns[static_cast<std::size_t>(column)].width;
    const int height = std::max(kUsualFontHeight, view_.fontMetrics().height());
    return std::max(width * height / kUsualFontHeight, head_.TitleWidth(column));
}

int ColumnHead::FrozenWidth() const {
    return head_.FrozenWidth();
}

void ColumnHead::Choose(int column, bool shown) {
    if (onChoose) return onChoose(column, shown);
    SetHidden(column, !shown);
    SpreadSpare();
}

// A column that comes back has the width that it had, with what was to spare then.
void ColumnHead::SetHidden(int column, bool hidden) {
    spreads_ = true;
    view_.setColumnHidden(column, hidden);
    spreads_ = false;
}

void ColumnHead::AddBox(QMenu& menu, int column) {
    const auto& info = results::kColumns[static_cast<std::size_t>(column)];
    QAction* entry = menu.addAction(ToQt(info.header));
    entry->setObjectName("col" + ToQt(info.key));
    entry->setCheckable(true);
    entry->setChecked(!view_.isColumnHidden(column));
    connect(entry, &QAction::toggled, this, [this, column](bool shown) { Choose(column, shown); });
}

void ColumnHead::FillMenu(QMenu& menu, int column) {
    if (results::IsChoosable(column)) {
        const auto& info = results::kColumns[static_cast<std::size_t>(column)];
        menu.addAction("&Hide \"" + ToQt(info.header) + "\"", this,
                       [this, column] { Choose(column, false); })
            ->setObjectName("actHideColumn");
        menu.addSeparator();
    }
    for (const auto group : results::kColumnGroups) {
        QMenu* boxes = &menu;
        if (group != results::ColumnGroup::kUsual) {
            boxes = new StayingMenu(ToQt(results::TitleOf(group)), &menu);
            GiveLettersWhenOpened(*boxes);
            menu.addMenu(boxes);
        }
        for (int i = 0; i < results::kColumnCount; ++i) {
            if (results::IsChoosable(i) && results::GroupOf(i) == group) AddBox(*boxes, i);
        }
        if (boxes == &menu) menu.addSeparator();
    }
    menu.addSeparator();
    menu.addAction("&Usual Columns", this, [this] { ShowUsual(); })
        ->setObjectName("actUsualColumns");
    menu.addAction("&Fit Widths", this, [this] { FitWidths(); })->setObjectName("actFitWidths");
}

void ColumnHead::ShowUsual() {
    for (int column = 0; column < results::kColumnCount; ++column) {
        if (!results::IsChoosable(column)) continue;
        if (view_.isColumnHidden(column) == results::IsUsual(column)) {
            Choose(column, results::IsUsual(column));
        }
    }
    const std::vector<int> order = results::UsualOrder();
    for (int place = 0; place < results::kColumnCount; ++place) {
        head_.moveSection(head_.visualIndex(order[static_cast<std::size_t>(place)]), place);
    }
}

void ColumnHead::FitWidths() {
    for (int column = 0; column < results::kColumnCount; ++column) {
        if (view_.isColumnHidden(column)) continue;
        const int wanted = static_cast<QAbstractItemView&>(view_).sizeHintForColumn(column);
        const int most = std::max(view_.viewport()->width(), UsualWidth(column));
        view_.setColumnWidth(column, std::clamp(wanted, head_.TitleWidth(column), most));
    }
}

void ColumnHead::Show(const Columns& shown) {
    bool changed = false;
    for (int column = 1; column < results::kColumnCount; ++column) {
        const bool hidden = !shown[static_cast<std::size_t>(column)];
        if (view_.isColumnHidden(column) == hidden) continue;
        SetHidden(column, hidden);
        changed = true;
    }
    if (changed) SpreadSpare();
}

void ColumnHead::Take(const Layout& layout) {
    const bool isWhole = results::IsOrder(layout.order);
    const std::vector<int> order = isWhole ? layout.order : results::UsualOrder();
    for (int place = 0; place < results::kColumnCount; ++place) {
        const int column = order[static_cast<std::size_t>(place)];
        head_.moveSection(head_.visualIndex(column), place);
        const int width = layout.widths[static_cast<std::size_t>(column)];
        int& own = own_[static_cast<std::size_t>(column)];
        own = width > 0 ? std::max(width, head_.TitleWidth(column)) : UsualWidth(column);
        view_.setColumnWidth(column, own);
    }
    SpreadSpare();
}

// A path has more use for room than a name.
int ColumnHead::SpareColumn() const {
    for (int place = head_.count() - 1; place >= 0; --place) {
        const int column = head_.logicalIndex(place);
        if (!head_.isSectionHidden(column) && results::IsWide(column)) return column;
    }
    return results::kName;
}

void ColumnHead::Resized(int column, int width) {
    if (spreads_ || width == 0) return;
    int& own = own_[static_cast<std::size_t>(column)];
    own = std::max(width, head_.TitleWidth(column));
    SpreadSpare();
}

void ColumnHead::SpreadSpare() {
    if (spreads_ || head_.count() == 0) return;
    spreads_ = true;
    const int taker = SpareColumn();
    int spare = view_.viewport()->width();
    for (int column = 0; column < head_.count(); ++column) {
        if (!head_.isSectionHidden(column)) spare -= own_[static_cast<std::size_t>(column)];
    }
    for (int column = 0; column < head_.count(); ++column) {
        if (head_.isSectionHidden(column)) continue;
        const int own = own_[static_cast<std::size_t>(column)];
        const int width = column == taker ? own + std::max(0, spare) : own;
        if (head_.sectionSize(column) != width) view_.setColumnWidth(column, width);
    }
    spreads_ = false;
}

ColumnHead::Layout ColumnHead::LayoutNow(const Layout& before) const {
    Layout now{before.widths, {}};
    for (int column = 0; column < results::kColumnCount; ++column) {
        now.order.push_back(head_.logicalIndex(column));
        if (view_.isColumnHidden(column)) continue;
        const int width = own_[static_cast<std::size_t>(column)];
        now.widths[static_cast<std::size_t>(column)] = width == UsualWidth(column) ? 0 : width;
    }
    if (now.order == results::UsualOrder()) now.order.clear();
    return now;
}

void ColumnHead::LockWidths(bool locked) {
    const auto mode = locked ? QHeaderView::Fixed : QHeaderView::Interactive;
    if (head_.sectionResizeMode(0) != mode) head_.setSectionResizeMode(mode);
}

} // namespace tarvix::forms
