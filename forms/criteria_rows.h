#pragma once

#include <QWidget>

#include <array>

class QHBoxLayout;

namespace tarvix::forms {

// The tests of a search in rows whose first widgets stand below the labels of the boxes above.
// Where there is room two of them share a row. Nothing but the window's width moves them.
class CriteriaRows : public QWidget {
  public:
    struct Parts {
        QWidget* kinds;
        QWidget* extras; // begins without a label
        QWidget* size;
        QWidget* date;
        QWidget* attributes;
    };
    // `boxes` is the grid with the labels.
    CriteriaRows(const QWidget& boxes, const Parts& parts);

    // As narrow as it could be, however wide it stands.
    QSize minimumSizeHint() const override;

  protected:
    bool event(QEvent* event) override;

  private:
    void Fit();
    void Arrange(bool isWide);
    int LabelIn(const QWidget& part) const;
    int DateWidth(int label) const;
    int WideWidth() const; // from which rows are shared

    Parts parts_;
    std::array<QHBoxLayout*, 3> rows_{};
    int label_; // width of the labels' column
    bool isWide_ = false;
};

} // namespace tarvix::forms
