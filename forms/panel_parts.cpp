#include "forms/panel_parts.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>

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
