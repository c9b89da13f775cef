#pragma once

#include <QString>

class QCalendarWidget;

namespace tarvix::forms {

// A calendar whose weeks begin on Monday and whose days all have the colour of text.
QCalendarWidget* MakeCalendar(const QString& name);

} // namespace tarvix::forms
