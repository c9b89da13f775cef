#include "forms/path_ruler.h"

#include "forms/text_conversion.h"
#include "text/characters.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollArea>

#include <algorithm>
#include <cstdlib>

namespace tarvix::forms {

namespace {
constexpr int kMostNumber = 250; // that a mark takes
constexpr int kEvery = 10;
constexpr int kRoom = 3; // cells that a number needs
constexpr int kTick = 4; // pixels
constexpr const char* kTip =
    "A rule counts the characters of this form of the path. A click writes one into the rule.";
constexpr int kSmallestFont = 6; // points

// The fixed font of this desktop, in lines no taller than those of `other`: some are, much.
QFont FixedBeside(const QFontMetrics& other) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    while (QFontMetrics(font).height() > other.height() && font.pointSize() > kSmallestFont)
        font.setPointSize(font.pointSize() - 1);
    return font;
}
} // namespace

PathRuler::PathRuler(QWidget* parent) : QWidget(parent) {
    setObjectName("PathRuler");
    setFont(FixedBeside(fontMetrics()));
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setToolTip(kTip);
    setAccessibleName("Path of the first selected object, by characters");
}

void PathRuler::Show(std::string_view path) {
    if (path == path_) return;
    path_ = path;
    characters_.clear();
    const std::size_t length = text::Length(path);
    for (std::size_t i = 1; i <= length; ++i)
        characters_ << Shown(text::Mid(path, i, 1));
    current_ = 0;
    updateGeometry();
    resize(sizeHint());
    update();
}

int PathRuler::CellWidth() const {
    return fontMetrics().horizontalAdvance('W') + 3;
}

QSize PathRuler::sizeHint() const {
    const int cells = std::max(1, static_cast<int>(characters_.size()));
    return {cells * CellWidth() + 4, 2 * fontMetrics().height() + kTick + 6};
}

int PathRuler::NumberAt(const QPoint& place) const {
    const int number = place.x() / CellWidth() + 1;
    const int last = std::min(kMostNumber, static_cast<int>(characters_.size()));
    return place.x() >= 0 && number <= last ? number : 0;
}

void PathRuler::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const int cell = CellWidth();
    const int line = fontMetrics().height();
    for (int i = 0; i < characters_.size(); ++i) {
        const QRect box(i * cell, 1, cell, line + 2);
        const int number = i + 1;
        if (number == current_) painter.fillRect(box, palette().highlight());
        painter.setPen(number == current_     ? palette().color(QPalette::HighlightedText)
                       : number > kMostNumber ? palette().color(QPalette::PlaceholderText)
                                              : palette().color(QPalette::WindowText));
        painter.drawText(box, Qt::AlignCenter, characters_[i]);
        painter.setPen(palette().color(QPalette::PlaceholderText));
        const bool isTenth = number % kEvery == 0 || number == 1;
        const int middle = box.center().x();
        painter.drawLine(middle, box.bottom() + 1, middle, box.bottom() + (isTenth ? kTick : 2));
        const bool isBesideCurrent = current_ != 0 && std::abs(number - current_) <= kRoom;
        if (number != current_ && (!isTenth || isBesideCurrent)) continue;
        if (number == current_) painter.setPen(palette().color(QPalette::WindowText));
        const QRect under(middle - 2 * cell, box.bottom() + kTick, 4 * cell, line);
        painter.drawText(under, Qt::AlignHCenter | Qt::AlignTop, QString::number(number));
    }
}

void PathRuler::MoveTo(int number) {
    if (number == current_) return;
    current_ = number;
    setToolTip(number == 0
                   ? QString()
                   : QString("Character %1. A click writes *%1* into the rule.").arg(number));
    setAccessibleDescription(
        number == 0 ? QString() : QString("%1: %2").arg(number).arg(characters_[number - 1]));
    update();
}

void PathRuler::Pick() {
    if (current_ != 0 && onPick) onPick(current_);
}

void PathRuler::mouseMoveEvent(QMouseEvent* event) {
    MoveTo(NumberAt(event->pos()));
}

void PathRuler::mousePressEvent(QMouseEvent* event) {
    MoveTo(NumberAt(event->pos()));
    if (event->button() == Qt::LeftButton) Pick();
}

void PathRuler::leaveEvent(QEvent*) {
    if (!hasFocus()) MoveTo(0);
}

void PathRuler::keyPressEvent(QKeyEvent* event) {
    const int last = std::min(kMostNumber, static_cast<int>(characters_.size()));
    switch (event->key()) {
    case Qt::Key_Left:
        return MoveTo(std::max(1, current_ - 1));
    case Qt::Key_Right:
        return MoveTo(std::min(last, current_ + 1));
    case Qt::Key_Home:
        return MoveTo(std::min(1, last));
    case Qt::Key_End:
        return MoveTo(last);
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        return Pick();
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace tarvix::forms
