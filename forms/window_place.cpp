#include "forms/window_place.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace tarvix::forms {

namespace {
constexpr int kGrip = 60; // pixels of a window that must lie on a screen
}

session::WindowPlace PlaceOf(const QWidget& window) {
    const bool isNormal = !window.isMaximized() && !window.isMinimized();
    const QPoint at = isNormal ? window.pos() : window.normalGeometry().topLeft();
    const QSize size = isNormal ? window.size() : window.normalGeometry().size();
    return {at.x(), at.y(), size.width(), size.height(), window.isMaximized()};
}

void TakePlace(QWidget& window, const session::WindowPlace& place) {
    if (place.width <= 0 || place.height <= 0) return;
    const QPoint at(place.left, place.top);
    const QScreen* screen = QGuiApplication::screenAt(at + QPoint(kGrip, kGrip));
    const QScreen& room = screen != nullptr ? *screen : *QGuiApplication::primaryScreen();
    window.resize(QSize(place.width, place.height).boundedTo(room.availableSize()));
    if (screen != nullptr) window.move(at);
    if (place.isMaximized) window.setWindowState(window.windowState() | Qt::WindowMaximized);
}

} // namespace tarvix::forms
