#include "forms/completion.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QCompleter>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QStringListModel>
#include <QTimer>
#include <QWindow>

#include <utility>

namespace tarvix::forms {

namespace {

constexpr int kOffered = 12;
constexpr int kFromHistory = 6;   // of them, beside folders
constexpr int kTypingPause = 120; // milliseconds after the last key

// A list that is offered keeps the keys of the window to itself; those that don't edit close it.
bool IsCommand(const QKeyEvent& key) {
    const bool isModifier = key.key() == Qt::Key_Control || key.key() == Qt::Key_Alt ||
                            key.key() == Qt::Key_Meta || key.key() == Qt::Key_AltGr;
    const bool isFunction = key.key() >= Qt::Key_F1 && key.key() <= Qt::Key_F35;
    const auto held = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return !isModifier && (isFunction || held != Qt::NoModifier);
}

class PopupKeys : public QObject {
  public:
    PopupKeys(QComboBox& box, QAbstractItemView& popup) : QObject(&box), box_(box), popup_(popup) {
        popup.installEventFilter(this);
        box.installEventFilter(this);
        box.lineEdit()->installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == &popup_ && event->type() == QEvent::MouseButtonPress)
            return PassOn(*static_cast<const QMouseEvent*>(event));
        const bool isAsked = event->type() == QEvent::ShortcutOverride;
        if ((!isAsked && event->type() != QEvent::KeyPress) || !popup_.isVisible()) return false;
        const auto& key = *static_cast<const QKeyEvent*>(event);
        if (isAsked && IsCommand(key)) popup_.hide();
        return !isAsked && TakeEnter(key);
    }

  private:
    // A press beside what is offered is one on what lies there.
    bool PassOn(const QMouseEvent& press) {
        if (popup_.rect().contains(press.position().toPoint())) return false;
        popup_.hide();
        const QPointF at = press.globalPosition();
        const QWidget* below = QApplication::widgetAt(at.toPoint());
        const QWidget* window = below == nullptr ? nullptr : below->window();
        if (window == nullptr || window->windowHandle() == nullptr) return true;
        // At once, as the button may be let go before anything that is posted comes.
        QMouseEvent event(press.type(), window->mapFromGlobal(at), at, press.button(),
                          press.buttons(), press.modifiers(), press.pointingDevice());
        QCoreApplication::sendEvent(window->windowHandle(), &event);
        return true;
    }

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

QStringList HistoryWith(const QComboBox& box, const QString& typed) {
    QStringList found;
    for (int i = 0; i < box.count() && found.size() < kFromHistory; ++i) {
        const QString entry = box.itemText(i);
        if (entry != typed && entry.contains(typed, Qt::CaseInsensitive)) found << entry;
    }
    return found;
}

// What is offered below a box of paths, made anew at each key.
class FolderPopup : public QObject {
  public:
    FolderPopup(QComboBox& box, FolderOffers offers)
        : QObject(&box), box_(box), line_(*box.lineEdit()), offers_(std::move(offers)),
          model_(new QStringListModel(this)), completer_(new QCompleter(model_, this)) {
        completer_->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
        completer_->setMaxVisibleItems(kOffered);
        completer_->setWidget(&line_);
        box.setCompleter(nullptr);
        timer_.setSingleShot(true);
        timer_.setInterval(kTypingPause);
        connect(&timer_, &QTimer::timeout, this, [this] { Ask(); });
        connect(&line_, &QLineEdit::textEdited, this, [this] { Begin(); });
        connect(completer_, qOverload<const QString&>(&QCompleter::activated), this,
                [this](const QString& chosen) { Take(chosen); });
        new PopupKeys(box, *completer_->popup());
    }

  private:
    void Begin() {
        if (takes_) return;
        Show(HistoryWith(box_, line_.text()));
        timer_.start();
    }

    void Ask() {
        const QString typed = line_.text();
        offers_.ask(typed, [this, typed](const QStringList& folders) {
            if (line_.text() == typed && IsTypedInto()) {
                Show(HistoryWith(box_, typed) + folders);
            }
        });
    }

    // The window's own focus, which a list that is offered doesn't take.
    bool IsTypedInto() const {
        const QWidget* focus = line_.window()->focusWidget();
        return focus == &line_ || focus == &box_;
    }

    void Show(const QStringList& texts) {
        if (texts.isEmpty() || line_.text().isEmpty()) return completer_->popup()->hide();
        if (texts != model_->stringList()) model_->setStringList(texts);
        completer_->complete();
    }

    void Take(const QString& chosen) {
        takes_ = true;
        line_.setText(chosen);
        Q_EMIT line_.textEdited(chosen);
        takes_ = false;
    }

    QComboBox& box_;
    QLineEdit& line_;
    FolderOffers offers_;
    QStringListModel* model_;
    QCompleter* completer_;
    QTimer timer_;
    bool takes_ = false; // an offer, which is no typing
};

} // namespace

void OfferFolders(QComboBox& box, FolderOffers offers) {
    new FolderPopup(box, std::move(offers));
}

void OfferCompletion(QComboBox& box) {
    auto* completer = new QCompleter(box.model(), &box);
    completer->setCompletionMode(QCompleter::PopupCompletion);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setFilterMode(Qt::MatchContains);
    completer->setMaxVisibleItems(kOffered);
    box.setCompleter(completer);
    new PopupKeys(box, *completer->popup());
}

} // namespace tarvix::forms
