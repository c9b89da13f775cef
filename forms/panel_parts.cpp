#include "forms/panel_parts.h"

#include <QAbstractButton>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <set>

namespace tarvix::forms {

namespace {

constexpr const char* kPlaceProperty = "keepsPlace";

class Follower : public QObject {
  public:
    Follower(QWidget& leader, QWidget& companion) : QObject(&companion), companion_(companion) {
        leader.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* leader, QEvent* event) override {
        if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent) {
            companion_.setVisible(!static_cast<QWidget*>(leader)->isHidden());
        }
        return false;
    }

  private:
    QWidget& companion_;
};

} // namespace

QWidget* InRow(const QList<QWidget*>& widgets, int spacing) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    for (QWidget* widget : widgets) {
        layout->addWidget(widget);
    }
    return row;
}

void SettleRows(QWidget& panel) {
    const QList<QWidget*> rows = panel.findChildren<QWidget*>();
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) { // from within
        if ((*row)->layout() != nullptr) (*row)->layout()->activate();
    }
    panel.layout()->activate();
}

QLabel* LabelFor(const QString& text, QWidget* box) {
    auto* label = new QLabel(text);
    label->setBuddy(box);
    return label;
}

void DropDoubledLetters(QWidget& window) {
    std::set<QChar> taken;
    const auto settle = [&](auto* part) {
        const QString text = part->text();
        const qsizetype at = text.indexOf(u'&');
        if (!part->isVisibleTo(&window) || at < 0 || at + 1 >= text.size()) return;
        if (!taken.insert(text[at + 1].toLower()).second)
            part->setText(QString(text).remove(at, 1));
    };
    const auto buttons = window.findChildren<QAbstractButton*>();
    for (const bool isPush : {true, false}) {
        for (QAbstractButton* button : buttons) {
            if ((qobject_cast<QPushButton*>(button) != nullptr) == isPush) settle(button);
        }
    }
    for (QLabel* label : window.findChildren<QLabel*>()) {
        if (label->buddy() != nullptr) settle(label);
    }
}

void KeepPlace(QWidget& widget) {
    widget.setProperty(kPlaceProperty, true);
}

bool KeepsPlace(const QWidget& widget) {
    return widget.property(kPlaceProperty).toBool();
}

void FollowVisibility(QWidget& leader, QWidget& companion) {
    new Follower(leader, companion);
}

} // namespace tarvix::forms
