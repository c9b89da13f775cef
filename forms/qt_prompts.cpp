#include "forms/qt_prompts.h"

#include "forms/message_dialog.h"
#include "forms/modal_window.h"
#include "forms/text_conversion.h"
#include "platform/native_paths.h"
#include "platform/platform.h"
#include "session/wordings.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QStringList>

namespace tarvix::forms {

namespace {

// The window that a prompt stands above.
QWidget* Front() {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    if (QWidget* active = QApplication::activeWindow()) return active;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->objectName() == "frmSearch") return window;
    }
    return nullptr;
}

} // namespace

QString FilterList(std::string_view filters) {
    const QStringList pieces = ToQt(filters).split('|', Qt::SkipEmptyParts);
    QStringList result;
    for (qsizetype i = 0; i + 1 < pieces.size(); i += 2) {
        const QString name = pieces[i].section('(', 0, 0).trimmed();
        result << name + " (" + QString(pieces[i + 1]).replace(';', ' ') + ")";
    }
    return result.join(";;");
}

int QtPrompts::MsgBox(const session::Prompt& prompt) {
    const EventGate::Modal level(gate_);
    const QString title = Shown(session::WindowTitle(prompt.id, prompt.title));
    const MessageText text{Shown(prompt.plain), Shown(prompt.text), ToQt(prompt.verb),
                           prompt.isInLoop};
    return MessageDialog(text, prompt.style, title, Front()).Ask();
}

std::string QtPrompts::InputBox(const session::Prompt& prompt, std::string_view preset) {
    const EventGate::Modal level(gate_);
    QInputDialog box(Front());
    box.setObjectName("InputBox");
    box.setWindowTitle(Shown(prompt.title));
    box.setLabelText(Shown(prompt.text));
    box.setTextValue(ToQt(preset));
    box.setOkButtonText("&OK");
    box.setCancelButtonText("&Cancel");
    return box.exec() == QDialog::Accepted ? ToUtf8(box.textValue()) : std::string();
}

void QtPrompts::ShowModal(session::Session& session, fields::Form& form,
                          const session::Prompt& /*prompt*/) {
    const EventGate::Modal level(gate_);
    if (const auto window = MakeModalWindow(session, gate_, form, Front())) window->Run();
}

std::string QtPrompts::Picked(const QString& path) {
    if (path.isEmpty()) return {};
    lastFolder_ = QFileInfo(path).path();
    return machine_.paths.ToDrive(ToUtf8(path));
}

std::string QtPrompts::PickFolder(const session::Prompt& prompt) {
    const EventGate::Modal level(gate_);
    const QString start =
        prompt.folder.empty() ? lastFolder_ : ToQt(machine_.paths.ToNative(prompt.folder));
    return Picked(QFileDialog::getExistingDirectory(Front(), Shown(prompt.title), start));
}

std::string QtPrompts::PickFile(const session::Prompt& prompt, std::string_view filters) {
    const EventGate::Modal level(gate_);
    const QString start =
        prompt.folder.empty() ? lastFolder_ : ToQt(machine_.paths.ToNative(prompt.folder));
    return Picked(
        QFileDialog::getOpenFileName(Front(), Shown(prompt.title), start, FilterList(filters)));
}

std::string QtPrompts::PickNewFile(const session::Prompt& prompt,
                                   const session::NewFilePick& pick) {
    const EventGate::Modal level(gate_);
    const QString folder =
        pick.folder.empty() ? lastFolder_ : ToQt(machine_.paths.ToNative(pick.folder));
    const QString filters = FilterList(pick.filters);
    QString chosen = filters.split(";;").value(pick.filter);
    // The action window asks before it replaces a file.
    return Picked(QFileDialog::getSaveFileName(Front(), Shown(prompt.title),
                                               QDir(folder).filePath(ToQt(pick.name)), filters,
                                               &chosen, QFileDialog::DontConfirmOverwrite));
}

} // namespace tarvix::forms
