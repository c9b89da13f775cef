#pragma once

#include "fields/form.h"

#include <QColor>
#include <QPalette>

#include <string_view>

namespace tarvix::forms {

// A colour of the logic as a tint that can be read on the palette's background: blue and red have
// their own, others keep their hue and are made lighter or darker until they stand out. Black is
// the palette's own text colour.
QColor Tint(fields::Color color, const QPalette& palette);

// How much two colours differ in brightness: from 1 for none to 21 for black on white.
double Contrast(const QColor& one, const QColor& other);

// Whether texts are lighter than what they stand on.
bool IsDark(const QPalette& palette);

// The usual palette of the light shade, and that of the dark one, for every state of a widget.
QPalette LightPalette();
QPalette DarkPalette();

// Outlines that can be seen in light and dark, over the desktop's style. Comes before the shade.
void UseOutlines();

// "light" or "dark" for the whole program; with anything else it follows the desktop.
void ChooseShade(std::string_view shade);

// Icons of the desktop's theme, or of the bundled fallback theme in the shade that fits.
void ChooseIconTheme(const QPalette& palette);

} // namespace tarvix::forms
