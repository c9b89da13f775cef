#pragma once

#include <QLayout>

#include <vector>

namespace tarvix::forms {

// Lays out its items from left to right and goes on in the next line when one does not fit. Items
// that are hidden take no room.
class FlowLayout : public QLayout {
  public:
    FlowLayout(int horizontal, int vertical);
    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override { items_.push_back(item); }
    int count() const override { return static_cast<int>(items_.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return Place({0, 0, width, 0}, false); }
    QSize sizeHint() const override { return minimumSize(); }
    QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

  private:
    int Place(const QRect& rect, bool move) const;
    void CenterLine(std::size_t first, std::size_t last, int y, int height) const;

    std::vector<QLayoutItem*> items_;
    int horizontal_;
    int vertical_;
};

} // namespace tarvix::forms
