#include "forms/numbers_window.h"

#include "forms/field_widgets.h"
#include "forms/list_box.h"
#include "forms/panel_parts.h"
#include "forms/text_conversion.h"
#include "forms/wrapping_label.h"
#include "session/session.h"

#include <QGridLayout>
#include <QVBoxLayout>

namespace tarvix::forms {

namespace {

constexpr int kCharacters = 70;
constexpr int kShownLines = 10;

QLineEdit* MakeNamed(const fields::TextBox& field, const QString& name, const QString& tip = {}) {
    QLineEdit* edit = Make(field);
    edit->setAccessibleName(name);
    edit->setToolTip(tip);
    return edit;
}

} // namespace

NumbersWindow::NumbersWindow(session::Session& session, EventGate& gate, QWidget* parent)
    : ModalWindow(session, gate, session.forms.frmNumbers, parent) {
    const auto& form = session.forms.frmNumbers;
    auto* column = new QVBoxLayout(this);
    column->setSpacing(10);
    column->addWidget(MakeFields());
    auto* told = new WrappingLabel;
    told->setObjectName(ToQt(form.lblMain.Name()));
    column->addWidget(told);
    FieldListBox* lines = Make(form.lstFirstLines);
    lines->setAccessibleName("The first lines that would be written");
    lines->setFocusPolicy(Qt::ClickFocus);
    lines->setMinimumHeight(lines->fontMetrics().lineSpacing() * kShownLines + 16);
    column->addWidget(lines, 1);
    QPushButton* ok = Make(form.cmdOK);
    ok->setDefault(true);
    column->addWidget(InRow({ok, Make(form.cmdCancel)}), 0, Qt::AlignRight);
    BindFields();
    TakeSize(kCharacters);
    auto* first = findChild<QLineEdit*>(ToQt(form.txtStart.Name()));
    first->setFocus();
    first->selectAll();
}

QWidget* NumbersWindow::MakeFields() {
    const auto& form = session_.forms.frmNumbers;
    auto* panel = new QWidget;
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(6);
    QLineEdit* from = MakeNamed(form.txtStart, "First number");
    QLineEdit* until = MakeNamed(form.txtEnd, "Last number");
    QLineEdit* picture =
        MakeNamed(form.txtFormat, "Format of the numbers",
                  "A # for the number, a 0 for each digit that is always there: 00# gives 001.");
    QLineEdit* line = MakeNamed(form.txtLine, "Text of a line", "A * stands for the number.");
    grid->addWidget(LabelFor("Numbers &from", from), 0, 0);
    grid->addWidget(from, 0, 1);
    grid->addWidget(LabelFor("&up to", until), 0, 2);
    grid->addWidget(until, 0, 3);
    grid->addWidget(Make(form.chkSameLength), 1, 0, 1, 2);
    grid->addWidget(LabelFor("by the for&mat", picture), 1, 2);
    grid->addWidget(picture, 1, 3);
    grid->addWidget(LabelFor("&Text of a line", line), 2, 0);
    grid->addWidget(line, 2, 1, 1, 3);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    return panel;
}

} // namespace tarvix::forms
