#pragma once

#include "forms/row_selector.h"

#include <QElapsedTimer>
#include <QPoint>
#include <QTableView>

#include <array>
#include <functional>
#include <optional>
#include <vector>

class QMenu;

namespace tarvix::forms {

// The table of found objects. The rows' own flags are the selection: the view sets and paints them,
// so that selecting all costs the same for ten rows and for 250,000.
class ResultView : public QTableView {
  public:
    explicit ResultView(results::ResultList& rows, QWidget* parent = nullptr);

    // What the owner does when the user has changed the selection at a row, opened a row, clicked
    // a column's head, or drags the selected rows out.
    std::function<void(std::size_t row)> onSelect;
    std::function<void(std::size_t row)> onOpen;
    std::function<void(int column)> onHead;
    std::function<void()> onDrag;
    // What the owner does when the user shows or hides a column; without it the view does it
    // itself.
    std::function<void(int column, bool shown)> onColumn;
    // Whether the selection may change now; always when not set.
    std::function<bool()> maySelect;
    // What an empty list says.
    std::function<QString()> emptyText;

    std::optional<std::size_t> CurrentRow() const;
    RowSelector& Selector() { return selector_; }
    void MoveTo(std::size_t row, Qt::KeyboardModifiers modifiers);
    // The columns that show, by index; the name always does.
    using Columns = std::array<bool, results::kColumnCount>;
    void ShowColumns(const Columns& shown);
    // Widths by column index, 0 for the usual one, and the columns from left to right, empty for
    // the usual order.
    struct Layout {
        std::array<int, results::kColumnCount> widths{};
        std::vector<int> order;
    };
    void TakeLayout(const Layout& layout);
    // Columns that are hidden or stretched keep the widths of `before`.
    Layout LayoutNow(const Layout& before) const;
    void LockWidths(bool locked);
    // One entry to show or hide each column.
    void FillColumnMenu(QMenu& menu);
    void keyboardSearch(const QString& text) override;

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

  private:
    bool MaySelect() const { return !maySelect || maySelect(); }
    void SetRowHeight();
    void SetUpHead();
    int LastShown() const;
    void SetCurrentRow(std::size_t row);
    void Changed(std::size_t row);
    std::optional<std::size_t> RowAt(const QPoint& at) const;
    std::optional<std::size_t> KeyTarget(int key) const;

    RowSelector selector_;
    QPoint pressedAt_;
    std::optional<std::size_t> pressedRow_;
    bool selectOnRelease_ = false; // a press on a selected row may begin a drag
    QString typed_;
    QElapsedTimer sinceTyped_;
};

} // namespace tarvix::forms
