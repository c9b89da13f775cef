#include "forms/calendar.h"

#include <QCalendarWidget>
#include <QTextCharFormat>

namespace tarvix::forms {

QCalendarWidget* MakeCalendar(const QString& name) {
    auto* calendar = new QCalendarWidget;
    calendar->setAccessibleName(name);
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar->setFirstDayOfWeek(Qt::Monday);
    calendar->setDateEditEnabled(false); // it reads dates in a format that nobody sees
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) {
        calendar->setWeekdayTextFormat(day, QTextCharFormat());
    }
    return calendar;
}

} // namespace tarvix::forms
