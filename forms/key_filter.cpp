#include "forms/key_filter.h"

#include "forms/text_conversion.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

#include <string>
#include <utility>

namespace tarvix::forms {

namespace {

class KeyFilter : public QObject {
  public:
    KeyFilter(QComboBox& box, std::function<bool(char, std::string_view)> takes)
        : QObject(&box), line_(*box.lineEdit()), takes_(std::move(takes)) {}

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return false;
        const QString typed = static_cast<QKeyEvent*>(event)->text();
        if (typed.size() != 1 || typed[0].unicode() < 32 || typed[0].unicode() > 126) return false;
        const bool isSelected = line_.hasSelectedText();
        const auto at = isSelected ? line_.selectionStart() : line_.cursorPosition();
        QString entry = line_.text();
        entry.replace(at, isSelected ? line_.selectedText().size() : 0, typed);
        return !takes_(static_cast<char>(typed[0].unicode()), ToUtf8(entry));
    }

  private:
    QLineEdit& line_;
    std::function<bool(char, std::string_view)> takes_;
};

} // namespace

void FilterKeys(QComboBox& box, std::function<bool(char, std::string_view)> takes) {
    box.lineEdit()->installEventFilter(new KeyFilter(box, std::move(takes)));
}

} // namespace tarvix::forms
