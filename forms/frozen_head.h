#pragma once

#include <QFont>
#include <QHash>
#include <QHeaderView>
#include <QString>

class QMouseEvent;

namespace tarvix::forms {

// A horizontal head whose name column stays at the left edge when it would scroll out of sight: it
// is drawn there once more, and clicks, drags and tips there are its own.
class FrozenHead : public QHeaderView {
  public:
    explicit FrozenHead(QWidget* parent = nullptr);

    // How many pixels at the left edge show the name column; 0 while it stands at its own place.
    int FrozenWidth() const;
    // The column at a place of the viewport, as the user sees it; -1 for none.
    int ColumnAt(int x) const;
    // What the title of a column needs, with the mark of the sort.
    int TitleWidth(int column) const;
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    bool viewportEvent(QEvent* event) override;

  private:
    bool IsFrozenAt(int x) const { return x >= 0 && x < FrozenWidth(); }
    // Hands on the event as it would come if the name column stood at its own place.
    template <class Handle>
    void Redirect(QMouseEvent* event, bool isThere, Handle handle);

    bool pressedThere_ = false;
    mutable QHash<QString, int> advances_; // of titles, in the font below
    mutable QFont measured_;
};

} // namespace tarvix::forms
