#pragma once

#include "forms/column_head.h"
#include "forms/result_model.h"
#include "results/row_selector.h"

#include <QElapsedTimer>
#include <QPoint>
#include <QTableView>

#include <functional>
#include <optional>

namespace tarvix::forms {

// The table of found objects. The rows' own flags are the selection: the view sets and paints them,
// so that selecting all costs the same for ten rows and for 250,000. Spacers are rules beside
// groups of two rows or more, and take no room elsewhere. The name stays in view when scrolled
// sideways.
class ResultView : public QTableView {
  public:
    explicit ResultView(results::ResultList& rows, QWidget* parent = nullptr);

    // What the owner does when the user has changed the selection at a row, opened a row, or drags
    // the selected rows out.
    std::function<void(std::size_t row)> onSelect;
    std::function<void(std::size_t row)> onOpen;
    std::function<void()> onDrag;
    // The menu of the selected rows is asked for, by the mouse or a key.
    std::function<void()> onMenu;
    // Whether the selection may change now; always when not set.
    std::function<bool()> maySelect;
    // What an empty list says.
    std::function<QString()> emptyText;

    // The row that has the keyboard; nothing when there is none, or a spacer has it.
    std::optional<std::size_t> CurrentRow() const;
    // Has the selection model, which screen readers ask, know of the current row what we do.
    void TellCurrent();
    // Where that menu is to stand, in the coordinates of the screen.
    QPoint MenuPlace() const { return menuPlace_; }
    results::RowSelector& Selector() { return selector_; }
    ColumnHead& Head() { return head_; }
    // Makes the row the current one and selects as a key with these modifiers does.
    void MoveTo(std::size_t row, Qt::KeyboardModifiers modifiers);
    void keyboardSearch(const QString& text) override;

    const results::ResultList& Rows() const { return rows_; }
    // Whether a group has two rows or more.
    bool HasGroups() const { return hasGroups_; }
    // Whether another search string than the first has found a row.
    bool HasLaterPatterns() const { return hasLaterPatterns_; }
    // Whether the row stands on the other shade, as every second one does where nothing is grouped.
    bool IsStriped(std::size_t row) const;
    // To the first row and the first column.
    void ScrollHome();

    void setModel(QAbstractItemModel* model) override;
    QModelIndex indexAt(const QPoint& at) const override;
    QRect visualRect(const QModelIndex& index) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

  protected:
    void scrollContentsBy(int x, int y) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

  private:
    bool MaySelect() const { return !maySelect || maySelect(); }
    void SetRowHeight();
    void LayOutRows(int first);
    void PaintFrozenName();
    std::optional<std::size_t> PageFrom(std::size_t row, int direction) const;
    void SetCurrentRow(std::size_t row);
    void Changed(std::size_t row);
    std::optional<std::size_t> RowAt(const QPoint& at) const;
    std::optional<std::size_t> KeyTarget(int key) const;

    const results::ResultList& rows_;
    ColumnHead head_;
    results::RowSelector selector_;
    bool hasSpacers_ = false;
    bool hasGroups_ = false;
    bool hasLaterPatterns_ = false;
    std::size_t lookedAt_ = 0; // rows, in the order of their coming
    QPoint pressedAt_;
    QPoint menuPlace_;
    std::optional<std::size_t> pressedRow_;
    bool selectOnRelease_ = false; // a press on a selected row may begin a drag
    QString typed_;
    QElapsedTimer sinceTyped_;
};

} // namespace tarvix::forms
