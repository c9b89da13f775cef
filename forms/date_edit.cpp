#include "forms/date_edit.h"

#include "fields/controls.h"
#include "forms/calendar.h"
#include "forms/text_conversion.h"

#include <QAction>
#include <QCalendarWidget>
#include <QHelpEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QMenu>
#include <QStyle>
#include <QToolTip>
#include <QWidgetAction>

#include <array>

namespace tarvix::forms {

namespace {

constexpr std::array<const char*, 10> kWords{
    "today",      "yesterday",  "last 7 days", "last 30 days", "last 12 months",
    "this month", "last month", "this year",   "last year",    "1 year ago"};
constexpr const char* kHowTo =
    "A date, as 2024/03/09 or 2024/03/09 12:30, or words: today, last 7 days, 2 months ago, 2023.\n"
    "Alt+Down opens a calendar.";

QIcon CalendarIcon(const QStyle& style) {
    const QIcon icon = QIcon::fromTheme("view-calendar");
    return icon.isNull() ? style.standardIcon(QStyle::SP_TitleBarUnshadeButton) : icon;
}

} // namespace

DateEdit::DateEdit(const fields::TextBox& field, const fields::DateLabel& meant,
                   const QString& name)
    : meant_(meant) {
    setObjectName(ToQt(field.Name()));
    setAccessibleName(name);
    setAccessibleDescription(kHowTo);
    setFixedWidth(fontMetrics().horizontalAdvance("2024/03/09 00:00") + 34);
    QAction* open = addAction(CalendarIcon(*style()), QLineEdit::TrailingPosition);
    open->setToolTip("Calendar and words (Alt+Down)");
    connect(open, &QAction::triggered, this, [this] { OpenMenu(); });
}

void DateEdit::Choose(const QString& text) {
    setText(text);
    Q_EMIT textEdited(text);
    setFocus(Qt::OtherFocusReason);
}

void DateEdit::FillMenu(QMenu& menu) {
    QCalendarWidget* calendar = MakeCalendar("Calendar");
    if (const auto& date = meant_.Date()) {
        calendar->setSelectedDate(QDate(date->year, date->month, date->day));
    }
    auto* days = new QWidgetAction(&menu);
    days->setDefaultWidget(calendar);
    menu.addAction(days);
    connect(calendar, &QCalendarWidget::activated, this, [this, &menu](QDate date) {
        Choose(date.toString("yyyy/MM/dd"));
        menu.close();
    });
    connect(calendar, &QCalendarWidget::clicked, this, [this, &menu](QDate date) {
        Choose(date.toString("yyyy/MM/dd"));
        menu.close();
    });
    menu.addSeparator();
    for (const char* word : kWords) {
        menu.addAction(word, this, [this, word] { Choose(word); });
    }
    connect(
        &menu, &QMenu::aboutToShow, calendar, [calendar] { calendar->setFocus(); },
        Qt::QueuedConnection);
}

void DateEdit::OpenMenu() {
    QMenu menu(this);
    menu.setObjectName("menuDates");
    FillMenu(menu);
    menu.exec(mapToGlobal(QPoint(0, height())));
}

bool DateEdit::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QLineEdit::event(event);
    const QString meant = text().isEmpty() ? QString() : ToQt(meant_.Caption.Get());
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       meant.isEmpty() ? QString(kHowTo) : meant + "\n" + kHowTo, this);
    return true;
}

void DateEdit::keyPressEvent(QKeyEvent* event) {
    const bool opens = event->key() == Qt::Key_Down || event->key() == Qt::Key_F4;
    const bool isAlt = event->modifiers().testFlag(Qt::AltModifier);
    if (opens && (isAlt || event->key() == Qt::Key_F4)) return OpenMenu();
    QLineEdit::keyPressEvent(event);
}

} // namespace tarvix::forms
