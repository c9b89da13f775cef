#include "forms/row_delegate.h"

#include "forms/icon_ink.h"
#include "forms/result_view.h"
#include "forms/text_conversion.h"
#include "text/cut_text.h"

#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace tarvix::forms {

namespace {

constexpr int kMargin = 4; // pixels beside a text
constexpr int kGap = 4;    // between a sign and a name
constexpr double kRuleTint = 0.45;

bool HoldsPaths(int column) {
    switch (column) {
    case results::kPath:
    case results::kPathName:
    case results::kPathNameNoSrch:
    case results::kTargetPath:
    case results::kWorkingDir:
    case results::kIconPath:
    case results::kShortPath:
        return true;
    default:
        return false;
    }
}

QColor Mixed(const QColor& one, const QColor& other, double part) {
    const auto mix = [part](float a, float b) {
        return static_cast<float>(a * (1 - part) + b * part);
    };
    return QColor::fromRgbF(mix(one.redF(), other.redF()), mix(one.greenF(), other.greenF()),
                            mix(one.blueF(), other.blueF()));
}

QPalette::ColorGroup ColorGroupOf(const QStyleOptionViewItem& option) {
    return (option.state & QStyle::State_Active) != 0 ? QPalette::Active : QPalette::Inactive;
}

} // namespace

RowDelegate::RowDelegate(ResultView& view) : QStyledItemDelegate(&view), list_(view) {}

// Icons are looked for when the first row shows them.
const SignLook& RowDelegate::LookOfRow(const results::ResultRow& row) const {
    const results::RowSign sign = results::SignOf(row);
    std::optional<SignLook>& look = looks_[static_cast<std::size_t>(sign)];
    if (!look) look = LookOf(sign);
    return *look;
}

QString RowDelegate::WholeText(const QModelIndex& index) {
    const QString text = index.data(Qt::DisplayRole).toString();
    const auto& info = results::kColumns[static_cast<std::size_t>(index.column())];
    // Types have blanks in front that only order them.
    if (index.column() == results::kType) return text.trimmed();
    return info.rightAlign ? WithoutLeadingZeros(text) : text;
}

// Signs stand in a column of their own in front of the names.
int RowDelegate::SignWidth() const {
    const int icon = list_.fontMetrics().height();
    const int number = list_.HasLaterPatterns() ? list_.fontMetrics().horizontalAdvance("00") : 0;
    return icon + number + kGap;
}

QRect RowDelegate::TextPlace(const QRect& cell, int column) const {
    const int left = column == results::kName ? SignWidth() : 0;
    return cell.adjusted(kMargin + left, 0, -kMargin, 0);
}

QString RowDelegate::CutToFit(const QFontMetrics& metrics, const QString& text, int column,
                              int width) const {
    if (metrics.horizontalAdvance(text) <= width) return text;
    if (!HoldsPaths(column)) return metrics.elidedText(text, Qt::ElideMiddle, width);
    const auto fits = [&](std::string_view part) {
        return metrics.horizontalAdvance(ToQt(part)) <= width;
    };
    return metrics.elidedText(ToQt(text::CutPath(ToUtf8(text), fits)), Qt::ElideMiddle, width);
}

void RowDelegate::PaintSpacer(QPainter& painter, const QRect& place) const {
    if (place.height() < 2) return;
    const QPalette palette = list_.palette();
    painter.fillRect(
        QRect(place.left(), place.center().y(), place.width(), 1),
        Mixed(palette.color(QPalette::Base), palette.color(QPalette::Text), kRuleTint));
}

void RowDelegate::PaintGround(QPainter& painter, const QStyleOptionViewItem& option,
                              std::size_t row, bool isSelected) const {
    const auto group = ColorGroupOf(option);
    if (isSelected) {
        painter.fillRect(option.rect, option.palette.brush(group, QPalette::Highlight));
    } else if (list_.IsStriped(row)) {
        painter.fillRect(option.rect, option.palette.brush(group, QPalette::AlternateBase));
    }
    if (static_cast<int>(row) != list_.currentIndex().row() || !list_.hasFocus()) return;
    const QRect& place = option.rect;
    painter.setPen(
        option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Highlight));
    painter.drawLine(place.topLeft(), place.topRight());
    painter.drawLine(place.bottomLeft(), place.bottomRight());
}

void RowDelegate::PaintSign(QPainter& painter, const QStyleOptionViewItem& option, std::size_t row,
                            const QColor& color) const {
    const results::ResultRow& shown = list_.Rows().At(row);
    const int height = list_.fontMetrics().height();
    const QRect place(option.rect.left() + kMargin, option.rect.center().y() - height / 2, height,
                      height);
    const SignLook& look = LookOfRow(shown);
    painter.setPen(color);
    if (!look.icon.isNull() && list_.Selector().IsSelected(row)) {
        InOneColor(look.icon, height, color).paint(&painter, place);
    } else if (!look.icon.isNull()) {
        look.icon.paint(&painter, place);
    } else if (!look.character.isEmpty()) {
        painter.drawText(place, Qt::AlignCenter, look.character);
    }
    if (const int pattern = results::LaterPattern(shown); pattern > 0) {
        const QRect beside(place.right() + 1, option.rect.top(),
                           list_.fontMetrics().horizontalAdvance("00"), option.rect.height());
        painter.drawText(beside, Qt::AlignCenter, QString::number(pattern));
    }
}

void RowDelegate::PaintText(QPainter& painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index, const QColor& color) const {
    const QString whole = WholeText(index);
    if (whole.isEmpty()) return;
    const QVariant font = index.data(Qt::FontRole);
    const QFont shown = font.isValid() ? font.value<QFont>().resolve(option.font) : option.font;
    const QFontMetrics metrics(shown);
    const QRect place = TextPlace(option.rect, index.column());
    const QString text = CutToFit(metrics, whole, index.column(), place.width());
    const bool toRight = results::kColumns[static_cast<std::size_t>(index.column())].rightAlign;
    const int left = toRight ? place.right() + 1 - metrics.horizontalAdvance(text) : place.left();
    painter.setFont(shown);
    painter.setPen(color);
    painter.drawText(left, place.top() + (place.height() - metrics.height()) / 2 + metrics.ascent(),
                     text);
}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (row >= list_.Rows().Count()) return;
    if (list_.Rows().At(row).IsSpacer()) return PaintSpacer(*painter, option.rect);
    const bool isSelected = list_.Selector().IsSelected(row);
    PaintGround(*painter, option, row, isSelected);
    QColor color = option.palette.color(ColorGroupOf(option), QPalette::HighlightedText);
    if (!isSelected) {
        const QVariant own = index.data(Qt::ForegroundRole);
        color = own.isValid() ? own.value<QColor>() : option.palette.color(QPalette::Text);
    }
    painter->setFont(option.font);
    if (index.column() == results::kName) PaintSign(*painter, option, row, color);
    PaintText(*painter, option, index, color);
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QString whole = WholeText(index);
    const int sign = index.column() == results::kName ? SignWidth() : 0;
    return {option.fontMetrics.horizontalAdvance(whole) + sign + 2 * kMargin + 1,
            option.fontMetrics.height()};
}

bool RowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                            const QStyleOptionViewItem& option, const QModelIndex& index) {
    const bool isTip = event != nullptr && event->type() == QEvent::ToolTip && index.isValid();
    if (!isTip) return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString whole = WholeText(index);
    const QRect place = TextPlace(option.rect, index.column());
    const bool isCut = list_.fontMetrics().horizontalAdvance(whole) > place.width();
    const QVariant full = index.data(ResultModel::kFullText);
    const QString tip = full.isValid() ? full.toString()
                        : isCut        ? whole
                                       : index.data(Qt::ToolTipRole).toString();
    QToolTip::showText(event->globalPos(), TipText(tip), view);
    return true;
}

} // namespace tarvix::forms
