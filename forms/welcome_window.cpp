#include "forms/welcome_window.h"

#include "forms/field_widgets.h"
#include "forms/message_dialog.h"
#include "forms/panel_parts.h"
#include "forms/text_conversion.h"
#include "session/session.h"

#include <QApplication>
#include <QLabel>
#include <QVBoxLayout>

namespace tarvix::forms {

namespace {
constexpr int kIcon = 48;       // pixels
constexpr int kCharacters = 84; // of the window's width
} // namespace

WelcomeWindow::WelcomeWindow(session::Session& session, EventGate& gate, QWidget* parent)
    : ModalWindow(session, gate, session.forms.frmWelcome, parent) {
    const auto& form = session.forms.frmWelcome;
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(20, 18, 20, 14);
    column->setSpacing(14);
    auto* picture = new QLabel;
    picture->setPixmap(QApplication::windowIcon().pixmap(kIcon, kIcon));
    picture->setHidden(QApplication::windowIcon().isNull());
    auto* title = new QLabel("Tarvix");
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * 1.6);
    font.setBold(true);
    title->setFont(font);
    column->addWidget(InRow({picture, title}, 12), 0, Qt::AlignLeft);
    const QString text = Shown(form.lblMain.Caption.Get());
    column->addWidget(MakeLongText(text, ToQt(form.lblMain.Name()), this), 1);
    setAccessibleDescription(text);
    QPushButton* start = Make(form.cmdOK);
    column->addWidget(InRow({Make(form.cmdGuide), start}), 0, Qt::AlignRight);
    start->setDefault(true);
    BindFields();
    TakeSize(kCharacters);
    start->setFocus();
}

} // namespace tarvix::forms
