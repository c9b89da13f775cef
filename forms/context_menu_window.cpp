#include "forms/context_menu_window.h"

#include "forms/letters.h"
#include "forms/result_view.h"
#include "forms/text_conversion.h"
#include "session/session.h"

#include <QCursor>
#include <QIcon>
#include <QMenu>

namespace tarvix::forms {

namespace {

QIcon IconOf(const std::string& name) {
    if (name.empty()) return {};
    return name.starts_with('/') ? QIcon(ToQt(name)) : QIcon::fromTheme(ToQt(name));
}

// Where the list was clicked or, by key, below its current row.
QPoint PlaceOf(const QWidget* window) {
    const auto* list = window == nullptr ? nullptr : window->findChild<QTableView*>("lstMain");
    return list == nullptr ? QCursor::pos() : static_cast<const ResultView*>(list)->MenuPlace();
}

} // namespace

ContextMenuWindow::ContextMenuWindow(session::Session& session, EventGate& gate, QWidget* parent)
    : ModalWindow(session, gate, session.forms.frmContextMenu, parent) {}

void ContextMenuWindow::Fill(QMenu& menu, const std::vector<fields::MenuItem>& items) {
    menu.setToolTipsVisible(true);
    GiveLettersWhenOpened(menu);
    for (const fields::MenuItem& item : items) {
        if (item.isLine) {
            menu.addSeparator();
            continue;
        }
        if (item.id < 0) {
            QMenu* below = menu.addMenu(IconOf(item.icon), ToQt(item.label));
            below->setEnabled(item.isEnabled);
            Fill(*below, item.children);
            continue;
        }
        QAction* action = menu.addAction(IconOf(item.icon), ToQt(item.label));
        action->setEnabled(item.isEnabled);
        if (!item.tip.empty()) action->setToolTip(ToQt(item.tip));
        connect(action, &QAction::triggered, this, [this, id = item.id] { chosen_ = id; });
    }
}

void ContextMenuWindow::Run() {
    auto& form = session_.forms.frmContextMenu;
    if (!form.IsShown()) return;
    QMenu menu(parentWidget());
    menu.setObjectName("mnuContext");
    Fill(menu, form.items);
    menu.exec(PlaceOf(parentWidget()));
    form.chosen = chosen_;
    form.Hide();
}

} // namespace tarvix::forms
