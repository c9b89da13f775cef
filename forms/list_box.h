#pragma once

#include <QListWidget>

#include <functional>

namespace tarvix::forms {

// A list whose selected lines follow its field: a click or the space bar only says which line was
// chosen, a double click or Enter that the list was opened.
class FieldListBox : public QListWidget {
  public:
    explicit FieldListBox(QWidget* parent = nullptr);

    QSize sizeHint() const override;

    std::function<void(int line)> onChoose;
    std::function<void(int line)> onOpen; // -1 beside the lines

  protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    bool opened_ = false; // the release that follows a double click chooses nothing
};

} // namespace tarvix::forms
