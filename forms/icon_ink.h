#pragma once

#include <QColor>
#include <QIcon>

namespace tarvix::forms {

// The same icon with all that it shows in one colour, for a ground on which its own colours can't
// be seen.
QIcon InOneColor(const QIcon& icon, int size, const QColor& color);

} // namespace tarvix::forms
