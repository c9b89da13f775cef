#include "forms/theme.h"

#include "forms/outline_style.h"

#include <QApplication>
#include <QIcon>
#include <QStyle>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace tarvix::forms {

namespace {

constexpr double kReadable = 4.6; // contrast of text to background

double Linear(double channel) {
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& color) {
    return 0.2126 * Linear(color.redF()) + 0.7152 * Linear(color.greenF()) +
           0.0722 * Linear(color.blueF());
}

QColor FromBlueGreenRed(fields::Color color) {
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
                  static_cast<int>(color >> 16 & 0xFF));
}

QColor MadeReadable(QColor color, const QPalette& palette) {
    const bool dark = IsDark(palette);
    const auto isReadable = [&palette](const QColor& ink) {
        return Contrast(ink, palette.color(QPalette::Base)) >= kReadable &&
               Contrast(ink, palette.color(QPalette::Window)) >= kReadable;
    };
    for (int step = 0; step < 20 && !isReadable(color); ++step) {
        float h = 0, s = 0, l = 0;
        color.getHslF(&h, &s, &l);
        l = dark ? std::min(1.0F, l + 0.05F) : std::max(0.0F, l - 0.05F);
        color = QColor::fromHslF(h < 0 ? 0 : h, s, l);
    }
    return color;
}

} // namespace

double Contrast(const QColor& one, const QColor& other) {
    const double a = Luminance(one);
    const double b = Luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

QColor Tint(fields::Color color, const QPalette& palette) {
    const bool dark = IsDark(palette);
    switch (color) {
    case fields::kBlack:
        return palette.color(QPalette::Text);
    case fields::kBlue:
        return dark ? QColor(0x8a, 0xb6, 0xf5) : QColor(0x1b, 0x4d, 0x9b);
    case fields::kRed:
        return dark ? QColor(0xf2, 0x92, 0x88) : QColor(0xa8, 0x26, 0x1c);
    default:
        return MadeReadable(FromBlueGreenRed(color), palette);
    }
}

QPalette LightPalette() {
    QPalette palette = QApplication::style()->standardPalette();
    QApplication::style()->polish(palette);
    return palette;
}

QPalette DarkPalette() {
    constexpr std::array<std::pair<QPalette::ColorRole, QRgb>, 17> kRoles{{
        {QPalette::Window, 0xff33373c},
        {QPalette::WindowText, 0xffe4e6e8},
        {QPalette::Base, 0xff1e2124},
        {QPalette::AlternateBase, 0xff24272b},
        {QPalette::Text, 0xffe4e6e8},
        {QPalette::Button, 0xff42474e},
        {QPalette::ButtonText, 0xffe4e6e8},
        {QPalette::BrightText, 0xffffffff},
        {QPalette::Light, 0xff4a4f56},
        {QPalette::Midlight, 0xff3f444a},
        {QPalette::Dark, 0xff17191b},
        {QPalette::Mid, 0xff202327},
        {QPalette::Highlight, 0xff2f65ad},
        {QPalette::HighlightedText, 0xffffffff},
        {QPalette::Link, 0xff8ab6f5},
        {QPalette::ToolTipBase, 0xff34383d},
        {QPalette::ToolTipText, 0xffe4e6e8},
    }};
    QPalette palette;
    for (const auto& [role, color] : kRoles) {
        palette.setColor(role, QColor::fromRgb(color));
    }
    palette.setColor(QPalette::PlaceholderText, QColor(0xa8, 0xad, 0xb3));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, QColor(0x80, 0x85, 0x8b));
    }
    return palette;
}

void UseOutlines() {
    QApplication::setStyle(new OutlineStyle);
}

void ChooseShade(std::string_view shade) {
    if (shade == "dark") QApplication::setPalette(DarkPalette());
    if (shade == "light") QApplication::setPalette(LightPalette());
}

void ChooseIconTheme(const QPalette& palette) {
    const QString fallback = IsDark(palette) ? "breeze-dark" : "breeze";
    QIcon::setFallbackThemeName(fallback);
    const QString theme = QIcon::themeName();
    if (theme.isEmpty() || theme == "hicolor" || theme.startsWith("breeze")) {
        QIcon::setThemeName(fallback);
    }
}

} // namespace tarvix::forms
