#include "forms/name_editor.h"

#include "forms/result_view.h"
#include "forms/text_conversion.h"
#include "results/result_list.h"
#include "session/native_entry.h"
#include "session/session.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace tarvix::forms {

namespace {

constexpr int kLeastCharacters = 24;

std::string NameOf(const session::Session& session, std::size_t row) {
    return session::NameShown(session, session.rows->At(row).name);
}

class NameEdit : public QLineEdit {
  public:
    NameEdit(ResultView& list, const session::Session& session, std::size_t row,
             std::function<void(std::size_t, const std::string&)> onName)
        : QLineEdit(list.viewport()), list_(list), session_(session), row_(row),
          onName_(std::move(onName)), before_(ToQt(NameOf(session, row))) {
        setObjectName("txtNewName");
        setAccessibleName("New name");
        setText(before_);
        Place();
        const bool isFile = !session.rows->At(row).isFolder;
        const qsizetype dot = before_.lastIndexOf(u'.');
        setSelection(0, static_cast<int>(isFile && dot > 0 ? dot : before_.size()));
    }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        event->accept();
        if (event->key() == Qt::Key_Escape) return Close();
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return Take();
        if (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab) return Close();
        QLineEdit::keyPressEvent(event);
    }
    // A menu of its own is no leaving.
    void focusOutEvent(QFocusEvent* event) override {
        QLineEdit::focusOutEvent(event);
        const bool isForGood = event->reason() != Qt::PopupFocusReason &&
                               event->reason() != Qt::ActiveWindowFocusReason;
        if (isForGood) Close();
    }
    // No shortcut of the window takes what is typed here.
    bool event(QEvent* event) override {
        if (event->type() == QEvent::ShortcutOverride) event->accept();
        return QLineEdit::event(event);
    }

  private:
    void Place() {
        const QModelIndex cell = list_.model()->index(static_cast<int>(row_), results::kName);
        list_.scrollTo(cell);
        QRect place = list_.visualRect(cell);
        const int least = fontMetrics().averageCharWidth() * kLeastCharacters;
        const int wanted =
            std::max({place.width(), least, fontMetrics().horizontalAdvance(before_ + "mmm")});
        place.setWidth(std::min(wanted, list_.viewport()->width() - place.left()));
        place.setHeight(std::max(place.height(), sizeHint().height()));
        place.moveCenter({place.center().x(), list_.visualRect(cell).center().y()});
        setGeometry(place);
    }
    // The box goes when the events at hand are through.
    void Close() {
        if (std::exchange(isClosed_, true)) return;
        hide();
        deleteLater();
        list_.setFocus();
    }
    void Take() {
        const QString name = before_ == before_.trimmed() ? text().trimmed() : text();
        const bool isSame = name == before_;
        const auto onName = onName_;
        const std::size_t row = row_;
        const std::string given = session::NameInDriveForm(session_, ToUtf8(name));
        Close();
        if (!isSame) onName(row, given);
    }

    ResultView& list_;
    const session::Session& session_;
    std::size_t row_;
    std::function<void(std::size_t, const std::string&)> onName_;
    QString before_;
    bool isClosed_ = false;
};

} // namespace

bool CanEditName(const session::Session& session, std::size_t row) {
    const std::string name = NameOf(session, row);
    return ToUtf8(ToQt(name)) == name;
}

void EditName(ResultView& list, const session::Session& session, std::size_t row,
              std::function<void(std::size_t row, const std::string& name)> onName) {
    auto* edit = new NameEdit(list, session, row, std::move(onName));
    edit->show();
    edit->setFocus();
}

} // namespace tarvix::forms
