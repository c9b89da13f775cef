#pragma once

#include "results/columns.h"

#include <QObject>

#include <array>
#include <functional>
#include <vector>

class QHeaderView;
class QMenu;
class QTableView;

namespace tarvix::forms {

// The head of the table of found objects: which columns show, in which order, and how wide.
class ColumnHead : public QObject {
  public:
    // Sets up the head of the view, which must live as long; the columns take their usual places
    // once the view has a model.
    explicit ColumnHead(QTableView& view);

    // What the owner does when the user clicks a column's head.
    std::function<void(int column)> onClick;
    // What the owner does when the user shows or hides a column; without it the head does it
    // itself.
    std::function<void(int column, bool shown)> onChoose;

    // The columns that show, by index; the name always does.
    using Columns = std::array<bool, results::kColumnCount>;
    void Show(const Columns& shown);
    // Widths in pixels by column index, 0 for the usual one, and the columns from left to right,
    // empty for the usual order.
    struct Layout {
        std::array<int, results::kColumnCount> widths{};
        std::vector<int> order;
    };
    // An order that lacks a column is taken as the usual one.
    void Take(const Layout& layout);
    // How the columns stand; those that are hidden or stretched keep the widths of `before`.
    Layout LayoutNow(const Layout& before) const;
    // Whether the user can drag the columns wider and narrower.
    void LockWidths(bool locked);
    // Adds one entry to show or hide each column.
    void FillMenu(QMenu& menu);

  private:
    void Connect();
    int LastShown() const;

    QTableView& view_;
    QHeaderView& head_;
};

} // namespace tarvix::forms
