#pragma once

#include <QScrollArea>

namespace tarvix::forms {

// A part of a window that is as high as what it holds where there is room, and scrolls where not.
class FittingArea : public QScrollArea {
  public:
    // Never lower than `least` lines of text.
    FittingArea(QWidget& content, int least);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    // How much higher it must be to show all; below 0 when it is higher than that.
    int MissingHeight() const;

  private:
    int HeightFor(int width) const; // that shows all
    int least_;
};

} // namespace tarvix::forms
