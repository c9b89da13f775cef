#pragma once

#include "session/settings/platform_settings.h"

class QWidget;

namespace tarvix::forms {

// Where a window stands, for the next run; of a maximized one where it stood before.
session::WindowPlace PlaceOf(const QWidget& window);

// Puts a window where it stood, as far as a screen is still there. No place changes nothing.
void TakePlace(QWidget& window, const session::WindowPlace& place);

} // namespace tarvix::forms
