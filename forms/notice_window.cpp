#include "forms/notice_window.h"

#include "forms/field_widgets.h"
#include "forms/message_dialog.h"
#include "forms/text_conversion.h"

#include <QVBoxLayout>

namespace tarvix::forms {

NoticeWindow::NoticeWindow(session::Session& session, EventGate& gate, fields::NoticeForm& form,
                           QWidget* parent)
    : ModalWindow(session, gate, form, parent) {
    auto* column = new QVBoxLayout(this);
    column->setSpacing(14);
    column->addWidget(
        MakeLongText(Shown(form.lblMain.Caption.Get()), ToQt(form.lblMain.Name()), this), 1);
    QPushButton* ok = Make(form.cmdOK);
    ok->setDefault(true);
    column->addWidget(ok, 0, Qt::AlignRight);
    BindFields();
    ok->setFocus();
}

} // namespace tarvix::forms
