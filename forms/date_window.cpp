#include "forms/date_window.h"

#include "forms/field_widgets.h"
#include "forms/panel_parts.h"
#include "session/session.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tarvix::forms {

DateWindow::DateWindow(session::Session& session, EventGate& gate, QWidget* parent)
    : ModalWindow(session, gate, session.forms.frmSelectDate, parent) {
    const auto& form = session.forms.frmSelectDate;
    auto* column = new QVBoxLayout(this);
    column->setSpacing(10);
    column->addWidget(Make(form.lblMain));
    auto* grid = new QGridLayout;
    const auto addLine = [grid](int line, const QString& word, const fields::DatePicker& date,
                                const fields::DatePicker& time) {
        QDateTimeEdit* day = Make(date);
        QDateTimeEdit* hour = Make(time);
        day->setAccessibleName(word + " date");
        hour->setAccessibleName(word + " time");
        QLabel* label = LabelFor(word, day);
        grid->addWidget(label, line, 0);
        grid->addWidget(day, line, 1);
        grid->addWidget(hour, line, 2);
        FollowVisibility(*day, *label);
    };
    addLine(0, "Start", form.dtpStartDate, form.dtpStartTime);
    addLine(1, "End", form.dtpEndDate, form.dtpEndTime);
    column->addLayout(grid);
    column->addStretch(1);
    QPushButton* ok = Make(form.cmdOK);
    ok->setDefault(true);
    column->addWidget(InRow({ok, Make(form.cmdCancel)}), 0, Qt::AlignRight);
    BindFields();
}

} // namespace tarvix::forms
