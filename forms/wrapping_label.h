#pragma once

#include <QLabel>

namespace tarvix::forms {

// Plain text in as many lines as it needs: a path without a blank is broken where the line ends.
// Its menu copies it.
class WrappingLabel : public QLabel {
  public:
    explicit WrappingLabel(const QString& text = {}, QWidget* parent = nullptr);

    // The size that the text takes in lines of at most this width.
    QSize SizeFor(int width) const;
    // The width in which no line of the text that stands right above or below another is broken
    // once more: at least `usual`, in which paragraphs are easy to read, and at most `most`.
    int WidthForLines(int usual, int most) const;
    int heightForWidth(int width) const override { return SizeFor(width).height(); }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tarvix::forms
