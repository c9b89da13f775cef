#include "forms/unread_window.h"

#include "forms/field_widgets.h"
#include "forms/list_box.h"
#include "forms/message_dialog.h"
#include "forms/text_conversion.h"
#include "session/session.h"

#include <QVBoxLayout>

namespace tarvix::forms {

namespace {
constexpr int kCharacters = 100;
}

UnreadWindow::UnreadWindow(session::Session& session, EventGate& gate, QWidget* parent)
    : ModalWindow(session, gate, session.forms.frmUnread, parent) {
    const auto& form = session.forms.frmUnread;
    auto* column = new QVBoxLayout(this);
    column->setSpacing(14);
    column->addWidget(
        MakeLongText(Shown(form.lblMain.Caption.Get()), ToQt(form.lblMain.Name()), this));
    FieldListBox* list = Make(form.lstUnread);
    list->setAccessibleName("What could not be read");
    list->setTextElideMode(Qt::ElideMiddle);
    column->addWidget(list, 1);
    QPushButton* close = Make(form.cmdOK);
    close->setDefault(true);
    column->addWidget(close, 0, Qt::AlignRight);
    BindFields();
    TakeSize(kCharacters);
    close->setFocus();
}

} // namespace tarvix::forms
