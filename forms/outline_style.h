#pragma once

#include <QProxyStyle>

class QPalette;

namespace tarvix::forms {

// The property of a check box whose three states are drawn as signs: a tick for only, a cross for
// none, a dash for any.
constexpr const char* kSignsProperty = "drawsSigns";

// The line around what can be used, and nothing lighter: the text colour mixed into the ground
// until it stands out from the window and from a box alike.
QColor OutlineOf(const QPalette& palette, bool isEnabled = true);

// The style of the desktop with outlines that can be seen in light and dark.
class OutlineStyle : public QProxyStyle {
  public:
    using QProxyStyle::QProxyStyle;

    // Makes hints and what is selected readable, too.
    void polish(QPalette& palette) override;
    using QProxyStyle::polish;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
};

} // namespace tarvix::forms
