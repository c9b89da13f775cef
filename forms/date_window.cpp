#include "forms/date_window.h"

#include "forms/calendar.h"
#include "forms/field_widgets.h"
#include "forms/panel_parts.h"
#include "forms/text_conversion.h"
#include "session/session.h"
#include "text/date_words.h"

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QCoreApplication>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

#include <array>

namespace tarvix::forms {

namespace {

constexpr std::array<const char*, 8> kStretches{"Today",        "Yesterday",  "Last 7 days",
                                                "Last 30 days", "This month", "Last month",
                                                "This year",    "Last year"};

QDateTime MomentOf(const text::DateTime& moment) {
    return {QDate(moment.year, moment.month, moment.day),
            QTime(moment.hour, moment.minute, moment.second)};
}

} // namespace

DateWindow::DateWindow(session::Session& session, EventGate& gate, QWidget* parent)
    : ModalWindow(session, gate, session.forms.frmSelectDate, parent) {
    const auto& form = session.forms.frmSelectDate;
    auto* column = new QVBoxLayout(this);
    column->setSpacing(10);
    column->addWidget(Make(form.lblMain));
    auto* row = new QHBoxLayout;
    row->setSpacing(16);
    row->addWidget(MakeWords(), 0, Qt::AlignTop);
    start_ = MakeMoment("Start", form.dtpStartDate, form.dtpStartTime);
    end_ = MakeMoment("End", form.dtpEndDate, form.dtpEndTime);
    row->addWidget(start_.panel);
    row->addWidget(end_.panel);
    column->addLayout(row);
    column->addStretch(1);
    QPushButton* ok = Make(form.cmdOK);
    ok->setDefault(true);
    column->addWidget(InRow({ok, Make(form.cmdCancel)}), 0, Qt::AlignRight);
    BindFields();
    for (const Moment& moment : {start_, end_}) {
        moment.calendar->setSelectedDate(moment.day->date());
        moment.day->installEventFilter(this);
        moment.calendar->findChild<QAbstractItemView*>()->installEventFilter(this);
    }
    start_.calendar->setFocus();
}

// The usual stretches of time, a click each.
QWidget* DateWindow::MakeWords() {
    auto* panel = new QWidget;
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    for (const char* word : kStretches) {
        auto* button = new QPushButton(word);
        button->setAutoDefault(false);
        button->setObjectName("btn" + QString(word).remove(' '));
        connect(button, &QPushButton::clicked, this, [this, word] { TakeWord(word); });
        column->addWidget(button);
    }
    return panel;
}

DateWindow::Moment DateWindow::MakeMoment(const QString& word, const fields::DatePicker& date,
                                          const fields::DatePicker& time) {
    Moment moment{new QWidget, Make(date), Make(time), MakeCalendar(word + " calendar")};
    auto* grid = new QGridLayout(moment.panel);
    grid->setContentsMargins(0, 0, 0, 0);
    moment.day->setCalendarPopup(false);
    moment.day->setAccessibleName(word + " date");
    moment.hour->setAccessibleName(word + " time");
    moment.calendar->setObjectName("cal" + word);
    grid->addWidget(LabelFor(word, moment.day), 0, 0);
    grid->addWidget(moment.day, 0, 1);
    grid->addWidget(moment.hour, 0, 2);
    grid->addWidget(moment.calendar, 1, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    FollowVisibility(*moment.day, *moment.panel);
    auto* day = moment.day;
    auto* calendar = moment.calendar;
    connect(calendar, &QCalendarWidget::selectionChanged, this,
            [day, calendar] { day->setDate(calendar->selectedDate()); });
    connect(calendar, &QCalendarWidget::activated, this,
            [this] { binder_->Click(session_.forms.frmSelectDate.cmdOK); });
    connect(day, &QDateTimeEdit::dateChanged, calendar,
            [calendar](QDate chosen) { calendar->setSelectedDate(chosen); });
    return moment;
}

bool DateWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return ModalWindow::eventFilter(watched, event);
    auto& key = static_cast<QKeyEvent&>(*event);
    for (const Moment& moment : {start_, end_}) {
        if (watched == moment.day) return SkipsSign(*moment.day, key);
        if (moment.calendar->isAncestorOf(qobject_cast<QWidget*>(watched)))
            return TypeOn(moment, key);
    }
    return false;
}

bool DateWindow::TypeOn(const Moment& moment, QKeyEvent& key) {
    if (key.text().isEmpty() || !key.text()[0].isDigit()) return false;
    moment.day->setFocus(Qt::OtherFocusReason);
    moment.day->setSelectedSection(moment.day->sectionAt(0));
    QCoreApplication::sendEvent(moment.day, &key);
    return true;
}

// The box goes to its next part by itself behind the last digit of one; the sign that is typed
// there would go one part further.
bool DateWindow::SkipsSign(QDateTimeEdit& day, const QKeyEvent& key) {
    if (key.text().isEmpty()) return false;
    const bool isDigit = key.text()[0].isDigit();
    if (isDigit) typedSection_ = day.currentSection();
    return !isDigit && !key.text()[0].isLetter() && key.text()[0].isPrint() && typedSection_ != 0 &&
           typedSection_ != day.currentSection();
}

void DateWindow::TakeWord(const char* word) {
    const auto span = text::ParseDateWords(word, session_.Now());
    if (!span) return;
    const auto set = [](const Moment& moment, const text::DateTime& value) {
        moment.day->setDateTime(MomentOf(value));
        moment.hour->setDateTime(MomentOf(value));
    };
    set(start_, span->first);
    if (session_.forms.frmSelectDate.dtpEndDate.Visible) set(end_, span->last);
}

} // namespace tarvix::forms
