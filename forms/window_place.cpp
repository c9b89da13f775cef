#include "forms/window_place.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace tarvix::forms {

namespace {

constexpr QSize kFrame(8, 32); // of a window that was never shown: its borders, and its title

// What the window system draws around a window.
QSize FrameOf(const QWidget& window) {
    const QSize frame = window.frameGeometry().size() - window.size();
    return frame.isEmpty() ? kFrame : frame;
}

} // namespace

session::WindowPlace PlaceOf(const QWidget& window) {
    const bool isNormal = !window.isMaximized() && !window.isMinimized();
    const QPoint at = isNormal ? window.pos() : window.normalGeometry().topLeft();
    const QSize size = isNormal ? window.size() : window.normalGeometry().size();
    return {at.x(), at.y(), size.width(), size.height(), window.isMaximized()};
}

QRect PlaceWithin(const QRect& wanted, const QSize& least, const QSize& frame, const QRect& room) {
    const QSize size = wanted.size().boundedTo(room.size() - frame).expandedTo(least);
    const int left = std::max(
        room.left(), std::min(wanted.left(), room.right() + 1 - size.width() - frame.width()));
    const int top = std::max(
        room.top(), std::min(wanted.top(), room.bottom() + 1 - size.height() - frame.height()));
    return {QPoint(left, top), size};
}

void TakePlace(QWidget& window, const session::WindowPlace& place) {
    if (place.width <= 0 || place.height <= 0) return;
    const QRect wanted(place.left, place.top, place.width, place.height);
    const QScreen* screen = QGuiApplication::screenAt(wanted.center());
    if (screen == nullptr) screen = QGuiApplication::screenAt(wanted.topLeft());
    if (screen == nullptr) screen = QGuiApplication::primaryScreen();
    const QSize least = window.minimumSize().expandedTo(window.minimumSizeHint());
    const QRect fitted = PlaceWithin(wanted, least, FrameOf(window), screen->availableGeometry());
    window.resize(fitted.size());
    window.move(fitted.topLeft());
    if (place.isMaximized) window.setWindowState(window.windowState() | Qt::WindowMaximized);
}

} // namespace tarvix::forms
