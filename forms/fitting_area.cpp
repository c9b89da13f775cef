#include "forms/fitting_area.h"

#include <QLayout>
#include <QStyle>

#include <algorithm>

namespace tarvix::forms {

namespace {

int HeightAt(const QWidget& content, int width) {
    const QLayout* layout = content.layout();
    if (layout != nullptr && layout->hasHeightForWidth()) return layout->totalHeightForWidth(width);
    return content.sizeHint().height();
}

} // namespace

FittingArea::FittingArea(QWidget& content, int least) : least_(least) {
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    setWidget(&content);
    content.setAutoFillBackground(false);
}

QSize FittingArea::sizeHint() const {
    const QSize wanted = widget()->sizeHint();
    const int width = std::max(wanted.width(), minimumSizeHint().width());
    return {width, HeightFor(width)};
}

QSize FittingArea::minimumSizeHint() const {
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    return {widget()->minimumSizeHint().width() + bar, fontMetrics().height() * least_};
}

int FittingArea::HeightFor(int width) const {
    return std::max(HeightAt(*widget(), width), minimumSizeHint().height());
}

int FittingArea::MissingHeight() const {
    return HeightFor(width()) - height();
}

} // namespace tarvix::forms
