#include "forms/outline_style.h"

#include "forms/theme.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>
#include <QWidget>

namespace tarvix::forms {

namespace {

constexpr double kTextContrast = 4.6; // contrast of a text to its ground
constexpr double kVisible = 3.4;      // contrast of an outline to what lies on both sides
constexpr double kFaint = 1.9;        // of one that can't be used
constexpr int kSteps = 40;
constexpr qreal kCorner = 2.5;
constexpr qreal kFocusWidth = 1.6;

QColor Mixed(const QColor& ground, const QColor& ink, double share) {
    const auto mix = [share](int from, int to) {
        return static_cast<int>(from + (to - from) * share + 0.5);
    };
    return QColor(mix(ground.red(), ink.red()), mix(ground.green(), ink.green()),
                  mix(ground.blue(), ink.blue()));
}

bool IsUsable(const QStyleOption& option) {
    return option.state.testFlag(QStyle::State_Enabled);
}

// As little ink as can be read on both grounds.
QColor Standing(const QColor& ink, const QColor& ground, const QColor& other) {
    for (int step = kSteps / 2; step < kSteps; ++step) {
        const QColor mixed = Mixed(ground, ink, static_cast<double>(step) / kSteps);
        if (Contrast(mixed, ground) >= kTextContrast && Contrast(mixed, other) >= kTextContrast) {
            return mixed;
        }
    }
    return ink;
}

// The ground, moved away from the ink as far as it must be for the ink to be read on it.
QColor Behind(const QColor& ground, const QColor& ink) {
    const QColor away = ink.lightness() > 127 ? QColor(Qt::black) : QColor(Qt::white);
    for (int step = 0; step < kSteps; ++step) {
        const QColor mixed = Mixed(ground, away, static_cast<double>(step) / kSteps);
        if (Contrast(mixed, ink) >= kTextContrast) return mixed;
    }
    return away;
}

// The colour of what is selected, moved towards the text until it stands out.
QColor FocusOf(const QPalette& palette) {
    const QColor mark = palette.color(QPalette::Active, QPalette::Highlight);
    const QColor ink = palette.color(QPalette::Active, QPalette::WindowText);
    for (int step = 0; step < kSteps; ++step) {
        const QColor mixed = Mixed(mark, ink, static_cast<double>(step) / kSteps);
        if (Contrast(mixed, palette.color(QPalette::Active, QPalette::Window)) >= kVisible &&
            Contrast(mixed, palette.color(QPalette::Active, QPalette::Base)) >= kVisible) {
            return mixed;
        }
    }
    return ink;
}

// A line of one pixel lies on the middle of the pixels.
QRectF LineRect(const QRect& rect) {
    return QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5);
}

void DrawFrame(const QStyleOption& option, QPainter& painter, const QRect& rect, qreal corner) {
    const bool hasFocus = option.state.testFlag(QStyle::State_HasFocus);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(hasFocus ? QPen(FocusOf(option.palette), kFocusWidth)
                            : QPen(OutlineOf(option.palette, IsUsable(option)), 1));
    painter.drawRoundedRect(LineRect(rect), corner, corner);
    painter.restore();
}

// In a square from 0 to 1.
QPainterPath Tick() {
    QPainterPath path(QPointF(0.22, 0.52));
    path.lineTo(0.43, 0.74);
    path.lineTo(0.80, 0.26);
    return path;
}

QPainterPath Cross() {
    QPainterPath path(QPointF(0.26, 0.26));
    path.lineTo(0.74, 0.74);
    path.moveTo(0.74, 0.26);
    path.lineTo(0.26, 0.74);
    return path;
}

QPainterPath Dash() {
    QPainterPath path(QPointF(0.25, 0.5));
    path.lineTo(0.75, 0.5);
    return path;
}

QPainterPath SignOf(const QStyleOption& option, const QWidget* widget) {
    const bool hasSigns = widget != nullptr && widget->property(kSignsProperty).toBool();
    if (option.state.testFlag(QStyle::State_NoChange)) return Dash();
    if (option.state.testFlag(QStyle::State_On)) return Tick();
    return hasSigns ? Cross() : QPainterPath();
}

QRect SquareIn(const QRect& rect) {
    const int side = std::min(rect.width(), rect.height());
    return {rect.x() + (rect.width() - side) / 2, rect.y() + (rect.height() - side) / 2, side,
            side};
}

QColor GroundOf(const QStyleOption& option) {
    const bool isUsable = IsUsable(option);
    if (isUsable && option.state.testFlag(QStyle::State_Sunken)) {
        return option.palette.color(QPalette::Midlight);
    }
    return option.palette.color(isUsable ? QPalette::Base : QPalette::Window);
}

void DrawMark(const QStyleOption& option, QPainter& painter, const QWidget* widget, bool isRound) {
    const QRect box = SquareIn(option.rect);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isAimedAt = IsUsable(option) && option.state.testFlag(QStyle::State_MouseOver);
    painter.setPen(QPen(isAimedAt ? option.palette.color(QPalette::Highlight)
                                  : OutlineOf(option.palette, IsUsable(option)),
                        1));
    painter.setBrush(GroundOf(option));
    const qreal corner = isRound ? box.width() / 2.0 : kCorner;
    painter.drawRoundedRect(LineRect(box), corner, corner);
    const QColor ink = option.palette.color(QPalette::Text);
    if (isRound && option.state.testFlag(QStyle::State_On)) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(ink);
        painter.drawEllipse(QRectF(box).center(), box.width() * 0.24, box.width() * 0.24);
    } else if (!isRound) {
        painter.setBrush(Qt::NoBrush);
        painter.translate(box.topLeft());
        painter.scale(box.width(), box.height());
        painter.setPen(QPen(ink, 1.8 / box.width(), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPath(SignOf(option, widget));
    }
    painter.restore();
}

bool IsFlat(const QStyleOption& option) {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    return button != nullptr && button->features.testFlag(QStyleOptionButton::Flat) &&
           !option.state.testFlag(QStyle::State_On) && !option.state.testFlag(QStyle::State_Sunken);
}

} // namespace

QColor OutlineOf(const QPalette& palette, bool isEnabled) {
    const QColor window = palette.color(QPalette::Active, QPalette::Window);
    const QColor base = palette.color(QPalette::Active, QPalette::Base);
    const QColor ink = palette.color(QPalette::Active, QPalette::WindowText);
    const double wanted = isEnabled ? kVisible : kFaint;
    for (int step = 1; step < kSteps; ++step) {
        const QColor mixed = Mixed(window, ink, static_cast<double>(step) / kSteps);
        if (Contrast(mixed, window) >= wanted && Contrast(mixed, base) >= wanted) return mixed;
    }
    return ink;
}

void OutlineStyle::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    const QColor base = palette.color(QPalette::Active, QPalette::Base);
    const QColor ink = palette.color(QPalette::Active, QPalette::Text);
    const QColor window = palette.color(QPalette::Active, QPalette::Window);
    palette.setColor(QPalette::PlaceholderText, Standing(ink, base, window));
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::Highlight,
                         Behind(palette.color(group, QPalette::Highlight),
                                palette.color(group, QPalette::HighlightedText)));
    }
}

void OutlineStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const {
    switch (element) {
    case PE_IndicatorCheckBox:
        return DrawMark(*option, *painter, widget, false);
    case PE_IndicatorRadioButton:
        return DrawMark(*option, *painter, widget, true);
    case PE_FrameLineEdit:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return DrawFrame(*option, *painter, option->rect, kCorner);
    case PE_PanelButtonCommand:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        if (!IsFlat(*option)) DrawFrame(*option, *painter, option->rect, kCorner);
        return;
    case PE_Frame:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return DrawFrame(*option, *painter, option->rect, 0);
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void OutlineStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    const auto* spin = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
    if ((combo != nullptr && combo->frame) || (spin != nullptr && spin->frame)) {
        DrawFrame(*option, *painter, option->rect, kCorner);
    }
}

} // namespace tarvix::forms
