#pragma once

#include "results/columns.h"

#include <QObject>

#include <array>
#include <functional>
#include <vector>

class QMenu;
class QTableView;

namespace tarvix::forms {

class FrozenHead;

// The head of the table of found objects: which columns show, in which order, and how wide. The
// last wide column that shows takes the width that the others leave.
class ColumnHead : public QObject {
  public:
    // Gives the view, which must live as long, a head of its own; the columns take their usual
    // places once the view has a model.
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
    // An order that lacks a column is taken as the usual one. No column becomes narrower than its
    // title.
    void Take(const Layout& layout);
    // How the columns stand; those that are hidden keep the widths of `before`.
    Layout LayoutNow(const Layout& before) const;
    // Whether the user can drag the columns wider and narrower.
    void LockWidths(bool locked);
    // Adds an entry to show or hide each column, in groups, and what acts on all; with a column,
    // one to hide it first.
    void FillMenu(QMenu& menu, int column = results::kName);
    // Shows the usual columns in their usual order.
    void ShowUsual();
    // Makes each column as wide as what is in view of it needs.
    void FitWidths();
    // How many pixels at the left edge show the name, which has been scrolled out of its own place.
    int FrozenWidth() const;
    FrozenHead& Header() { return head_; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Connect();
    void Choose(int column, bool shown);
    void SetHidden(int column, bool hidden);
    void AddBox(QMenu& menu, int column);
    int UsualWidth(int column) const;
    int SpareColumn() const;
    void Resized(int column, int width);
    void SpreadSpare();

    QTableView& view_;
    FrozenHead& head_;
    std::array<int, results::kColumnCount> own_{}; // widths without what was to spare
    bool spreads_ = false;
};

} // namespace tarvix::forms
