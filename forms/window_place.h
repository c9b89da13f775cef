#pragma once

#include "session/settings/platform_settings.h"

#include <QRect>

class QWidget;

namespace tarvix::forms {

// Where a window stands, for the next run; of a maximized one where it stood before.
session::WindowPlace PlaceOf(const QWidget& window);

// The wanted place of a window (its position with its frame, its size without) so that all of it,
// frame included, lies in the room that a screen has. Never smaller than `least`.
QRect PlaceWithin(const QRect& wanted, const QSize& least, const QSize& frame, const QRect& room);

// Puts a window where it stood, moved and made smaller as far as its screen asks for; on the first
// screen where its own has gone. No place changes nothing.
void TakePlace(QWidget& window, const session::WindowPlace& place);

} // namespace tarvix::forms
