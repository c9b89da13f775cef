#pragma once

#include "forms/fields/form.h"

#include <QColor>
#include <QPalette>

namespace tarvix::qt {

// A colour of the logic as a tint that can be read on the palette's background: blue and red have
// their own, others keep their hue and are made lighter or darker until they stand out. Black is
// the palette's own text colour.
QColor Tint(forms::Color color, const QPalette& palette);

bool IsDark(const QPalette& palette);

// A dark palette for desktops that ask for one without giving it.
QPalette DarkPalette();

// Icons of the desktop's theme, or of the bundled fallback theme in the shade that fits.
void ChooseIconTheme(const QPalette& palette);

} // namespace tarvix::qt
