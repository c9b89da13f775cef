#include "forms/panel_parts.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>

namespace tarvix::forms {

namespace {

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
    for (const QWidget* row : panel.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (row->layout() != nullptr) row->layout()->activate();
    }
    panel.layout()->activate();
}

QLabel* LabelFor(const QString& text, QWidget* box) {
    auto* label = new QLabel(text);
    label->setBuddy(box);
    return label;
}

void FollowVisibility(QWidget& leader, QWidget& companion) {
    new Follower(leader, companion);
}

} // namespace tarvix::forms
