#include "forms/icon_ink.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>

namespace tarvix::forms {

QIcon InOneColor(const QIcon& icon, int size, const QColor& color) {
    QPixmap picture = icon.pixmap(QSize(size, size), qApp->devicePixelRatio());
    if (picture.isNull()) return icon;
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(picture.rect(), color);
    painter.end();
    QIcon inked;
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected})
        inked.addPixmap(picture, mode);
    return inked;
}

} // namespace tarvix::forms
