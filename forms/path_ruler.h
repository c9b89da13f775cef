#pragma once

#include <QStringList>
#include <QWidget>

#include <functional>
#include <string>
#include <string_view>

namespace tarvix::forms {

// A path character by character over a ruler of their numbers, from 1. A click, or Enter, picks the
// character under it; arrows go from one to the next.
class PathRuler : public QWidget {
  public:
    explicit PathRuler(QWidget* parent = nullptr);

    // The path (drive form) whose characters are counted.
    void Show(std::string_view path);
    // What the owner does with a picked number; those beyond the last that a mark takes are none.
    std::function<void(int)> onPick;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    int CellWidth() const;
    int NumberAt(const QPoint& place) const; // 0 for none
    void MoveTo(int number);
    void Pick();

    std::string path_;
    QStringList characters_;
    int current_ = 0; // the number under the pointer or the keyboard; 0 for none
};

} // namespace tarvix::forms
