#include "forms/change_delegate.h"

#include "forms/preview_model.h"
#include "forms/text_conversion.h"
#include "text/cut_text.h"

#include <QApplication>
#include <QPainter>
#include <QTextLayout>

namespace tarvix::forms {

namespace {

constexpr int kCellMargin = 4;
constexpr float kTintAlpha = 0.28F;

struct MarkedText {
    QString text;
    int start = 0;
    int length = 0;
};

// A path without a mark is cut by whole folders, anything else around what changed.
MarkedText Cut(const QModelIndex& index, const QFontMetrics& metrics, int width) {
    const QString text = index.data().toString();
    const auto fits = [&](std::string_view part) {
        return metrics.horizontalAdvance(ToQt(part)) <= width;
    };
    const QVariant changed = index.data(PreviewModel::kChanged);
    if (!changed.isValid()) {
        const bool isPath = index.column() != PreviewModel::kVerdict;
        const QString cut = isPath ? ToQt(text::CutPath(ToUtf8(text), fits)) : text;
        return {metrics.elidedText(cut, Qt::ElideMiddle, width)};
    }
    const QString arrow = text.startsWith(PreviewModel::kArrow) ? PreviewModel::kArrow : "";
    const auto fitsBehindArrow = [&](std::string_view part) {
        return metrics.horizontalAdvance(arrow + ToQt(part)) <= width;
    };
    const QString name = text.mid(arrow.size());
    const qsizetype first = changed.toPoint().x() - arrow.size();
    const std::size_t start = ToUtf8(name.left(first)).size();
    const std::size_t length = ToUtf8(name.mid(first, changed.toPoint().y())).size();
    const text::CutText cut = text::CutAround(ToUtf8(name), {start, length}, fitsBehindArrow);
    const std::string_view front = std::string_view(cut.text).substr(0, cut.span.start);
    const std::string_view part =
        std::string_view(cut.text).substr(cut.span.start, cut.span.length);
    return {arrow + ToQt(cut.text), static_cast<int>(arrow.size() + ToQt(front).size()),
            static_cast<int>(ToQt(part).size())};
}

QTextCharFormat MarkOf(const QStyleOptionViewItem& option, bool isGone) {
    QTextCharFormat mark;
    if (isGone) {
        mark.setFontStrikeOut(true);
    } else {
        mark.setFontWeight(QFont::Bold);
        mark.setFontUnderline((option.state & QStyle::State_Selected) != 0);
    }
    QColor ground = option.palette.color(isGone ? QPalette::Text : QPalette::Highlight);
    ground.setAlphaF(isGone ? kTintAlpha / 2 : kTintAlpha);
    if ((option.state & QStyle::State_Selected) == 0) mark.setBackground(ground);
    return mark;
}

} // namespace

void ChangeDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
    QStyleOptionViewItem shown = option;
    initStyleOption(&shown, index);
    shown.text.clear();
    const QStyle* style = option.widget != nullptr ? option.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &shown, painter, option.widget);
    const bool isSelected = (option.state & QStyle::State_Selected) != 0;
    const QRect place = option.rect.adjusted(kCellMargin, 0, -kCellMargin, 0);
    QFont bold = option.font;
    bold.setBold(true); // so that there is room for the marked part
    const bool isMarked = index.data(PreviewModel::kChanged).isValid();
    const MarkedText cut =
        Cut(index, isMarked ? QFontMetrics(bold) : option.fontMetrics, place.width());
    QTextLayout layout(cut.text, option.font);
    if (cut.length > 0) {
        const bool isGone = index.column() == PreviewModel::kObject;
        layout.setFormats({{cut.start, cut.length, MarkOf(option, isGone)}});
    }
    layout.beginLayout();
    layout.createLine().setLineWidth(place.width() + kCellMargin);
    layout.endLayout();
    painter->setPen(option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
    layout.draw(painter, {static_cast<qreal>(place.left()),
                          place.top() + (place.height() - option.fontMetrics.height()) / 2.0});
}

} // namespace tarvix::forms
