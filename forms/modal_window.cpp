#include "forms/modal_window.h"

#include "forms/action_window.h"
#include "forms/batch_window.h"
#include "forms/choice_window.h"
#include "forms/context_menu_window.h"
#include "forms/date_window.h"
#include "forms/letters.h"
#include "forms/link_table_window.h"
#include "forms/link_windows.h"
#include "forms/notice_window.h"
#include "forms/numbers_window.h"
#include "forms/open_with_window.h"
#include "forms/options_window.h"
#include "forms/preview_window.h"
#include "forms/runs_window.h"
#include "forms/text_conversion.h"
#include "forms/unread_window.h"
#include "forms/welcome_window.h"
#include "session/session.h"

#include <QCloseEvent>
#include <QLayout>
#include <QScreen>

namespace tarvix::forms {

ModalWindow::ModalWindow(session::Session& session, EventGate& gate, fields::Form& form,
                         QWidget* parent)
    : QDialog(parent), session_(session), gate_(gate), form_(form) {
    setObjectName(ToQt(form.Name()));
    setModal(true);
    gate_.Add(*this);
}

ModalWindow::~ModalWindow() {
    gate_.Remove(*this);
}

void ModalWindow::BindFields() {
    binder_ = std::make_unique<Binder>(session_, gate_, form_, *this);
    setWindowTitle(Shown(form_.Caption).section('\n', 0, 0).trimmed().left(100));
    Refresh();
    GiveLetters(*this);
}

void ModalWindow::TakeSize(int characters) {
    const QSize room = screen()->availableSize() - QSize(16, 40); // its frame and title
    const QSize wanted = sizeHint().expandedTo({fontMetrics().averageCharWidth() * characters, 0});
    const int width = wanted.boundedTo(room).expandedTo(minimumSizeHint()).width();
    const bool flows = layout()->hasHeightForWidth();
    const int height = flows ? layout()->totalHeightForWidth(width) : wanted.height();
    resize(QSize(width, height).boundedTo(room).expandedTo(minimumSizeHint()));
}

void ModalWindow::Run() {
    if (form_.IsShown()) exec();
}

void ModalWindow::Flush() {
    if (!binder_) return;
    binder_->Flush();
    Refresh();
    GiveLetters(*this);
    if (!form_.IsShown()) done(0);
}

void ModalWindow::Idle() {
    if (binder_) binder_->ApplyPending();
}

void ModalWindow::reject() {
    if (gate_.IsBusy()) {
        if (fields::Control* stop = form_.Find("cmdStop")) binder_->Click(*stop);
    } else if (const auto buttons = form_.WaysOut(); !buttons.empty()) {
        binder_->Click(*buttons.front());
    }
}

void ModalWindow::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && binder_) binder_->ShowAll();
}

void ModalWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    reject();
}

std::unique_ptr<ModalWindow> MakeModalWindow(session::Session& session, EventGate& gate,
                                             fields::Form& form, QWidget* parent) {
    if (&form == &session.frmDialog) return std::make_unique<ActionWindow>(session, gate, parent);
    if (&form == &session.forms.frmSelectDate) {
        return std::make_unique<DateWindow>(session, gate, parent);
    }
    if (&form == &session.forms.frmAsk) return std::make_unique<AskWindow>(session, gate, parent);
    if (&form == &session.forms.frmAsk259) {
        return std::make_unique<LongPathWindow>(session, gate, parent);
    }
    if (&form == &session.forms.frmPreview) {
        return std::make_unique<PreviewWindow>(session, gate, parent);
    }
    if (&form == &session.forms.frmNumbers) {
        return std::make_unique<NumbersWindow>(session, gate, parent);
    }
    if (&form == &session.forms.frmUnread) {
        return std::make_unique<UnreadWindow>(session, gate, parent);
    }
    if (&form == &session.forms.frmRuns) {
        return std::make_unique<RunsWindow>(session, gate, parent);
    }
    if (&form == &session.forms.frmWelcome) {
        return std::make_unique<WelcomeWindow>(session, gate, parent);
    }
    if (&form == &session.forms.frmBatch) {
        return std::make_unique<BatchWindow>(session, gate, parent);
    }
    if (&form == &session.forms.frmShortcutWarning) {
        return std::make_unique<ShortcutWarningWindow>(session, gate, parent);
    }
    if (&form == &session.forms.frmLinkChanges) {
        return std::make_unique<LinkChangesWindow>(session, gate, parent);
    }
    if (&form == &session.forms.frmLinkTable) {
        return std::make_unique<LinkTableWindow>(session, gate, parent);
    }
    if (&form == &session.forms.frmContextMenu) {
        return std::make_unique<ContextMenuWindow>(session, gate, parent);
    }
    if (&form == &session.forms.frmOpenWith) {
        return std::make_unique<OpenWithWindow>(session, gate, parent);
    }
    if (&form == &session.forms.frmOptions) {
        return std::make_unique<OptionsWindow>(session, gate, parent);
    }
    if (auto* asked = dynamic_cast<fields::OverrideForm*>(&form)) {
        return std::make_unique<OverrideWindow>(session, gate, *asked, parent);
    }
    if (auto* notice = dynamic_cast<fields::NoticeForm*>(&form)) {
        return std::make_unique<NoticeWindow>(session, gate, *notice, parent);
    }
    return nullptr;
}

} // namespace tarvix::forms
