#include "forms/staying_menu.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace tarvix::forms {

namespace {

bool IsBox(const QAction* action) {
    return action != nullptr && action->isCheckable() && action->isEnabled();
}

} // namespace

void StayingMenu::mouseReleaseEvent(QMouseEvent* event) {
    QAction* action = actionAt(event->position().toPoint());
    if (!IsBox(action) || event->button() != Qt::LeftButton) {
        return QMenu::mouseReleaseEvent(event);
    }
    action->trigger();
}

void StayingMenu::keyPressEvent(QKeyEvent* event) {
    const bool chooses = event->key() == Qt::Key_Space || event->key() == Qt::Key_Return ||
                         event->key() == Qt::Key_Enter;
    if (!chooses || !IsBox(activeAction())) return QMenu::keyPressEvent(event);
    activeAction()->trigger();
}

} // namespace tarvix::forms
