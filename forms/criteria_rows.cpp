#include "forms/criteria_rows.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace tarvix::forms {

namespace {

constexpr int kBetween = 18; // parts in one row

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
        row->setAlignment(Qt::AlignLeft);
        column->addLayout(row);
    }
    for (QWidget* part : {parts.kinds, parts.size, parts.date, parts.attributes}) {
        FirstOf(*part)->setMinimumWidth(label_);
    }
    column->addWidget(parts.attributes);
    Arrange(false);
}

// As if the date began a row, so that what fits doesn't depend on how it stands.
int CriteriaRows::WideWidth() const {
    const int first = parts_.kinds->sizeHint().width() + parts_.extras->sizeHint().width();
    const QWidget& box = *FirstOf(*parts_.date);
    const int wanted = parts_.date->sizeHint().width() -
                       std::max(box.sizeHint().width(), box.minimumWidth()) +
                       box.sizeHint().width();
    return std::max(first, parts_.size->sizeHint().width() + wanted) + kBetween;
}

void CriteriaRows::Arrange(bool isWide) {
    isWide_ = isWide;
    for (QWidget* part : {parts_.kinds, parts_.size, parts_.extras, parts_.date}) {
        for (QHBoxLayout* row : rows_) {
            row->removeWidget(part);
        }
    }
    FirstOf(*parts_.date)->setMinimumWidth(isWide ? 0 : label_);
    rows_[0]->addWidget(parts_.kinds);
    rows_[1]->addWidget(parts_.size);
    rows_[isWide ? 0 : 1]->addWidget(parts_.extras);
    rows_[isWide ? 1 : 2]->addWidget(parts_.date);
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
