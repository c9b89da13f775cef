#include "forms/qt_clipboard.h"

#include <QByteArray>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace tarvix::forms {

QMimeData* MimeDataOf(const std::vector<platform::ClipboardForm>& forms) {
    auto* data = new QMimeData;
    for (const platform::ClipboardForm& form : forms)
        data->setData(QString::fromStdString(form.type), QByteArray::fromStdString(form.bytes));
    return data;
}

void QtClipboard::Put(const std::vector<platform::ClipboardForm>& forms) {
    QGuiApplication::clipboard()->setMimeData(MimeDataOf(forms));
}

} // namespace tarvix::forms
