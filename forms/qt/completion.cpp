#include "forms/qt/completion.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace tarvix::qt {

namespace {

constexpr int kOffered = 12;

class EnterFilter : public QObject {
  public:
    EnterFilter(QComboBox& box, QAbstractItemView& popup)
        : QObject(&box), box_(box), popup_(popup) {
        popup.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || popup_.currentIndex().isValid()) return false;
        const auto* key = static_cast<const QKeyEvent*>(event);
        if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter) return false;
        popup_.hide();
        QCoreApplication::postEvent(box_.lineEdit(),
                                    new QKeyEvent(QEvent::KeyPress, key->key(), key->modifiers()));
        return true;
    }

  private:
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
    new EnterFilter(box, *completer->popup());
}

} // namespace tarvix::qt
