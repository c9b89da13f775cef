#include "forms/open_with_window.h"

#include "forms/field_widgets.h"
#include "forms/list_box.h"
#include "forms/panel_parts.h"
#include "session/session.h"

#include <QVBoxLayout>

namespace tarvix::forms {

namespace {
constexpr int kCharacters = 60;
}

OpenWithWindow::OpenWithWindow(session::Session& session, EventGate& gate, QWidget* parent)
    : ModalWindow(session, gate, session.forms.frmOpenWith, parent) {
    const auto& form = session.forms.frmOpenWith;
    auto* column = new QVBoxLayout(this);
    column->addWidget(MakeElided(form.lblMain));
    QLineEdit* find = Make(form.txtFind);
    find->setPlaceholderText("Find an application");
    find->setAccessibleName("Find an application");
    find->setClearButtonEnabled(true);
    column->addWidget(find);
    FieldListBox* list = Make(form.lstApplications);
    list->setAccessibleName("Applications");
    column->addWidget(list, 1);
    QPushButton* open = Make(form.cmdOK);
    open->setDefault(true);
    column->addWidget(InRow({open, Make(form.cmdCancel)}), 0, Qt::AlignRight);
    BindFields();
    TakeSize(kCharacters);
    find->setFocus();
}

} // namespace tarvix::forms
