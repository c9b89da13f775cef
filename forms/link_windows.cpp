#include "forms/link_windows.h"

#include "forms/field_widgets.h"
#include "forms/list_box.h"
#include "forms/message_dialog.h"
#include "forms/panel_parts.h"
#include "forms/text_conversion.h"
#include "session/session.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tarvix::forms {

namespace {

constexpr int kCharacters = 110;

// The buttons at the lower right.
void AddButtons(QVBoxLayout& column, const QList<QWidget*>& buttons) {
    column.addWidget(InRow(buttons), 0, Qt::AlignRight);
}

} // namespace

ShortcutWarningWindow::ShortcutWarningWindow(session::Session& session, EventGate& gate,
                                             QWidget* parent)
    : ModalWindow(session, gate, session.forms.frmShortcutWarning, parent) {
    const auto& form = session.forms.frmShortcutWarning;
    auto* column = new QVBoxLayout(this);
    column->setSpacing(14);
    for (const fields::Label* label : {&form.lblTop, &form.lblBottom}) {
        column->addWidget(MakeLongText(Shown(label->Caption.Get()), ToQt(label->Name()), this), 1);
    }
    QPushButton* cancel = Make(form.cmdCancel);
    AddButtons(*column, {Make(form.cmdTable), Make(form.cmdOk), cancel});
    cancel->setDefault(true);
    BindFields();
    TakeSize(kCharacters);
    cancel->setFocus();
}

LinkChangesWindow::LinkChangesWindow(session::Session& session, EventGate& gate, QWidget* parent)
    : ModalWindow(session, gate, session.forms.frmLinkChanges, parent) {
    const auto& form = session.forms.frmLinkChanges;
    auto* column = new QVBoxLayout(this);
    column->setSpacing(14);
    column->addWidget(
        MakeLongText(Shown(form.lblMain.Caption.Get()), ToQt(form.lblMain.Name()), this));
    FieldListBox* list = Make(form.lstChanges);
    list->setAccessibleName("What would change");
    column->addWidget(list, 1);
    QPushButton* cancel = Make(form.cmdCancel);
    AddButtons(*column, {Make(form.cmdOK), cancel});
    cancel->setDefault(true);
    BindFields();
    TakeSize(kCharacters);
    cancel->setFocus();
}

} // namespace tarvix::forms
