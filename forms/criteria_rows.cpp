#include "forms/criteria_rows.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace tarvix::forms {

namespace {

constexpr int kBetween = 18; // parts in one row
constexpr int kGrid = 6;     // columns of the boxes above

QWidget* FirstOf(const QWidget& part) {
    return part.layout()->itemAt(0)->widget();
}

int LabelWidth(const QWidget& boxes) {
    int width = 0;
    for (const QLabel* label : boxes.findChildren<QLabel*>(Qt::FindDirectChildrenOnly)) {
        width = std::max(width, label->sizeHint().width());
    }
    return width;
}

} // namespace

CriteriaRows::CriteriaRows(const QWidget& boxes, const Parts& parts)
    : parts_(parts), label_(LabelWidth(boxes)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    for (QHBoxLayout*& row : rows_) {
        row = new QHBoxLayout;
        row->setSpacing(kBetween);
        row->addStretch(1);
        column->addLayout(row);
    }
    for (QWidget* part : {parts.kinds, parts.size, parts.date, parts.attributes}) {
        FirstOf(*part)->setMinimumWidth(LabelIn(*part));
    }
    column->addWidget(parts.attributes);
    Arrange(false);
}

// Behind its label each part begins at the same place.
int CriteriaRows::LabelIn(const QWidget& part) const {
    return label_ + kGrid - part.layout()->spacing();
}

// With so much room for the box that stands for its label.
int CriteriaRows::DateWidth(int label) const {
    const QWidget& box = *FirstOf(*parts_.date);
    const int own = box.sizeHint().width();
    return parts_.date->sizeHint().width() - std::max(own, box.minimumWidth()) +
           std::max(own, label);
}

int CriteriaRows::WideWidth() const {
    const int first = parts_.kinds->sizeHint().width() + parts_.extras->sizeHint().width();
    return std::max(first, parts_.size->sizeHint().width() + DateWidth(0)) + kBetween;
}

QSize CriteriaRows::minimumSizeHint() const {
    const int second =
        parts_.size->sizeHint().width() + kBetween + parts_.extras->sizeHint().width();
    const int width =
        std::max({parts_.kinds->sizeHint().width(), second, DateWidth(LabelIn(*parts_.date))});
    return {std::min(width, QWidget::minimumSizeHint().width()),
            QWidget::minimumSizeHint().height()};
}

void CriteriaRows::Arrange(bool isWide) {
    isWide_ = isWide;
    for (QWidget* part : {parts_.kinds, parts_.size, parts_.extras, parts_.date}) {
        for (QHBoxLayout* row : rows_) {
            row->removeWidget(part);
        }
    }
    FirstOf(*parts_.date)->setMinimumWidth(isWide ? 0 : LabelIn(*parts_.date));
    const auto add = [this](std::size_t row, QWidget* part) {
        rows_[row]->insertWidget(rows_[row]->count() - 1, part);
    };
    add(0, parts_.kinds);
    add(1, parts_.size);
    add(isWide ? 0 : 1, parts_.extras);
    add(isWide ? 1 : 2, parts_.date);
}

void CriteriaRows::Fit() {
    const bool isWide = width() >= WideWidth();
    if (isWide == isWide_) return;
    Arrange(isWide);
    updateGeometry();
}

// Captions come behind the widgets. A layout that is being carried out can't be changed.
bool CriteriaRows::event(QEvent* event) {
    const bool isAsked = event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest;
    if (isAsked)
        QMetaObject::invokeMethod(
            this, [this] { Fit(); }, Qt::QueuedConnection);
    return QWidget::event(event);
}

} // namespace tarvix::forms
