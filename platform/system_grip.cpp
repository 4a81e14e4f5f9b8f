#include "platform/system_grip.h"

#include <QGuiApplication>
#include <QWindow>

namespace brusbo {

namespace {

bool is_left_to_the_system() {
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

/// The release goes to the system, but Qt would wait for it and take every later click as meant for
/// the widget that was pressed.
void release(QWindow& window, const QMouseEvent& press) {
    QCoreApplication::postEvent(
        &window,
        new QMouseEvent(QEvent::MouseButtonRelease, press.scenePosition(), press.globalPosition(),
                        press.button(), Qt::NoButton, press.modifiers()));
}

}  // namespace

bool system_moves(QWidget& window, const QMouseEvent& press) {
    QWindow& handle = *window.windowHandle();
    if (!is_left_to_the_system() || !handle.startSystemMove()) return false;
    release(handle, press);
    return true;
}

bool system_resizes(QWidget& window, Qt::Edges edges, const QMouseEvent& press) {
    QWindow& handle = *window.windowHandle();
    if (!is_left_to_the_system() || !handle.startSystemResize(edges)) return false;
    release(handle, press);
    return true;
}

}  // namespace brusbo
