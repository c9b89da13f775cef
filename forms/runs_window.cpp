#include "forms/runs_window.h"

#include "forms/field_widgets.h"
#include "forms/list_box.h"
#include "forms/message_dialog.h"
#include "forms/text_conversion.h"
#include "session/session.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tarvix::forms {

namespace {
constexpr int kRunsWidth = 80;
}

RunsWindow::RunsWindow(session::Session& session, EventGate& gate, QWidget* parent)
    : ModalWindow(session, gate, session.forms.frmRuns, parent) {
    const auto& form = session.forms.frmRuns;
    auto* column = new QVBoxLayout(this);
    column->setSpacing(14);
    column->addWidget(
        MakeLongText(Shown(form.lblMain.Caption.Get()), ToQt(form.lblMain.Name()), this));
    FieldListBox* list = Make(form.lstRuns);
    list->setAccessibleName("Runs, the newest first");
    connect(list, &QListWidget::currentRowChanged, this, [list](int line) {
        if (line >= 0 && list->onChoose) list->onChoose(line);
    });
    column->addWidget(list, 1);
    auto* row = new QHBoxLayout;
    QPushButton* view = Make(form.cmdView);
    view->setDefault(true);
    row->addWidget(view);
    row->addWidget(Make(form.cmdRecycle));
    row->addStretch(1);
    row->addWidget(Make(form.cmdOK));
    column->addLayout(row);
    BindFields();
    TakeSize(kRunsWidth);
    list->setFocus();
}

} // namespace tarvix::forms
