#include <xcb/xcb.h>

#include <QGuiApplication>
#include <QWindow>
#include <cstdlib>
#include <memory>

#include "platform/system_grip.h"

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

/// nullptr on other window systems.
xcb_connection_t* x_server() {
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 == nullptr ? nullptr : x11->connection();
}

QPoint device_place_of(xcb_window_t window, xcb_connection_t* server) {
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
    const auto asked = xcb_translate_coordinates(server, window, root, 0, 0);
    const std::unique_ptr<xcb_translate_coordinates_reply_t, decltype(&std::free)> place(
        xcb_translate_coordinates_reply(server, asked, nullptr), std::free);
    return place ? QPoint(place->dst_x, place->dst_y) : QPoint();
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

WindowGrip::WindowGrip(QWidget& window, QPointF pointer)
    : window_(window), pointer_(pointer), place_(window.windowHandle()->position()) {
    if (auto* const server = x_server())
        device_place_ = device_place_of(static_cast<xcb_window_t>(window.winId()), server);
}

void WindowGrip::follow(QPointF pointer) {
    const QPointF way = pointer - pointer_;
    // Before Qt has moved the window, the window system would take its place for the frame's.
    if (!moved_ && way.toPoint().isNull()) return;
    moved_ = true;
    window_.windowHandle()->setPosition(place_ + way.toPoint());
    const double ratio = window_.devicePixelRatio();
    auto* const server = x_server();
    if (server == nullptr || ratio == 1) return;
    const QPoint there = device_place_ + (way * ratio).toPoint();
    const std::int32_t x_and_y[] = {there.x(), there.y()};
    xcb_configure_window(server, static_cast<xcb_window_t>(window_.winId()),
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, x_and_y);
}

}  // namespace brusbo
