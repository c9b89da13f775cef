#include "forms/drop_filter.h"

#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>

#include <utility>

namespace tarvix::forms {

namespace {

class DropFilter : public QObject {
  public:
    DropFilter(QComboBox& box, std::function<void(const QList<QUrl>&)> onDrop)
        : QObject(&box), box_(box), onDrop_(std::move(onDrop)) {}

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        const bool drags = event->type() == QEvent::DragEnter ||
                           event->type() == QEvent::DragMove || event->type() == QEvent::Drop;
        if (!drags || !box_.isEnabled()) return false;
        auto* drop = static_cast<QDropEvent*>(event);
        if (!drop->mimeData()->hasUrls()) return false;
        drop->acceptProposedAction();
        if (event->type() == QEvent::Drop) onDrop_(drop->mimeData()->urls());
        return true;
    }

  private:
    QComboBox& box_;
    std::function<void(const QList<QUrl>&)> onDrop_;
};

} // namespace

void AcceptDrops(QComboBox& box, std::function<void(const QList<QUrl>&)> onDrop) {
    auto* filter = new DropFilter(box, std::move(onDrop));
    box.setAcceptDrops(true);
    box.installEventFilter(filter);
    box.lineEdit()->installEventFilter(filter);
}

} // namespace tarvix::forms
