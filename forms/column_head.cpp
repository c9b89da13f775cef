#include "forms/column_head.h"

#include "forms/text_conversion.h"

#include <QAction>
#include <QHeaderView>
#include <QMenu>
#include <QTableView>

namespace tarvix::forms {

namespace {

int UsualWidth(int column) {
    return results::kColumns[static_cast<std::size_t>(column)].width;
}

} // namespace

ColumnHead::ColumnHead(QTableView& view) : view_(view), head_(*view.horizontalHeader()) {
    head_.setSectionsMovable(true);
    head_.setSectionsClickable(true);
    head_.setHighlightSections(false);
    head_.setStretchLastSection(true);
    head_.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    head_.setContextMenuPolicy(Qt::CustomContextMenu);
    Connect();
}

void ColumnHead::Connect() {
    connect(&head_, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        auto* menu = new QMenu(&view_);
        menu->setAttribute(Qt::WA_DeleteOnClose);
        FillMenu(*menu);
        menu->popup(head_.mapToGlobal(at));
    });
    connect(&head_, &QHeaderView::sectionClicked, this, [this](int column) {
        if (onClick) onClick(column);
    });
    connect(&head_, &QHeaderView::sectionCountChanged, this, [this](int before, int) {
        if (before == 0) Take({});
    });
}

void ColumnHead::FillMenu(QMenu& menu) {
    for (int column = 0; column < results::kColumnCount; ++column) {
        if (!results::IsChoosable(column)) continue;
        const auto& info = results::kColumns[static_cast<std::size_t>(column)];
        QAction* entry = menu.addAction(ToQt(info.header));
        entry->setCheckable(true);
        entry->setChecked(!view_.isColumnHidden(column));
        connect(entry, &QAction::toggled, this, [this, column](bool shown) {
            if (onChoose) return onChoose(column, shown);
            view_.setColumnHidden(column, !shown);
        });
    }
}

void ColumnHead::Show(const Columns& shown) {
    for (int column = 1; column < results::kColumnCount; ++column) {
        const bool hidden = !shown[static_cast<std::size_t>(column)];
        if (view_.isColumnHidden(column) != hidden) view_.setColumnHidden(column, hidden);
    }
}

void ColumnHead::Take(const Layout& layout) {
    const bool isWhole = results::IsOrder(layout.order);
    const std::vector<int> order = isWhole ? layout.order : results::UsualOrder();
    for (int place = 0; place < results::kColumnCount; ++place) {
        const int column = order[static_cast<std::size_t>(place)];
        head_.moveSection(head_.visualIndex(column), place);
        const int width = layout.widths[static_cast<std::size_t>(column)];
        view_.setColumnWidth(column, width > 0 ? width : UsualWidth(column));
    }
}

int ColumnHead::LastShown() const {
    int place = head_.count() - 1;
    while (place > 0 && head_.isSectionHidden(head_.logicalIndex(place))) {
        --place;
    }
    return head_.logicalIndex(place);
}

ColumnHead::Layout ColumnHead::LayoutNow(const Layout& before) const {
    Layout now{before.widths, {}};
    const int stretched = LastShown();
    for (int column = 0; column < results::kColumnCount; ++column) {
        now.order.push_back(head_.logicalIndex(column));
        if (view_.isColumnHidden(column) || column == stretched) continue;
        const int width = view_.columnWidth(column);
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
