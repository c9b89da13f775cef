#include "forms/completion.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace tarvix::forms {

namespace {

constexpr int kOffered = 12;

// A list that is offered keeps the keys of the window to itself; those that don't edit close it.
bool IsCommand(const QKeyEvent& key) {
    const bool isModifier = key.key() == Qt::Key_Control || key.key() == Qt::Key_Alt ||
                            key.key() == Qt::Key_Meta || key.key() == Qt::Key_AltGr;
    const bool isFunction = key.key() >= Qt::Key_F1 && key.key() <= Qt::Key_F35;
    const auto held = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return !isModifier && (isFunction || held != Qt::NoModifier);
}

class KeyFilter : public QObject {
  public:
    KeyFilter(QComboBox& box, QAbstractItemView& popup) : QObject(&box), box_(box), popup_(popup) {
        popup.installEventFilter(this);
        box.installEventFilter(this);
        box.lineEdit()->installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        const bool isAsked = event->type() == QEvent::ShortcutOverride;
        if ((!isAsked && event->type() != QEvent::KeyPress) || !popup_.isVisible()) return false;
        const auto& key = *static_cast<const QKeyEvent*>(event);
        if (isAsked && IsCommand(key)) popup_.hide();
        return !isAsked && TakeEnter(key);
    }

  private:
    bool TakeEnter(const QKeyEvent& key) {
        const bool isEnter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
        if (!isEnter || popup_.currentIndex().isValid()) return false;
        popup_.hide();
        QCoreApplication::postEvent(box_.lineEdit(),
                                    new QKeyEvent(QEvent::KeyPress, key.key(), key.modifiers()));
        return true;
    }

    QComboBox& box_;
    QAbstractItemView& popup_;
};

} // namespace

void OfferCompletion(QComboBox& box) {
    auto* completer = new QCompleter(box.model(), &box);
    completer->setCompletionMode(QCompleter::PopupCompletion);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setFilterMode(Qt::MatchContains);
    completer->setMaxVisibleItems(kOffered);
    box.setCompleter(completer);
    new KeyFilter(box, *completer->popup());
}

} // namespace tarvix::forms
