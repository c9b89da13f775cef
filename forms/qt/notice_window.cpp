#include "forms/qt/notice_window.h"

#include "forms/qt/field_widgets.h"
#include "forms/qt/message_dialog.h"
#include "forms/qt/text_conversion.h"

#include <QVBoxLayout>

namespace tarvix::qt {

NoticeWindow::NoticeWindow(session::Session& session, EventGate& gate, forms::NoticeForm& form,
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

} // namespace tarvix::qt
