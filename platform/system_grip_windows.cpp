#include <windows.h>

#include "platform/system_grip.h"

namespace brusbo {

namespace {

/// Whether the system would see this hold end. It follows the left button alone; another one, or
/// one whose release has been taken from the queue already, would leave the window at the pointer
/// until the next click.
bool can_be_followed(const QMouseEvent& press) {
    return press.button() == Qt::LeftButton && GetKeyState(VK_LBUTTON) < 0;
}

HWND handle_of(const QWidget& window) { return reinterpret_cast<HWND>(window.winId()); }

QPoint device_place_of(const QWidget& window) {
    RECT there{};
    GetWindowRect(handle_of(window), &there);
    return {static_cast<int>(there.left), static_cast<int>(there.top)};
}

void put(const QWidget& window, QPoint device_place) {
    SetWindowPos(handle_of(window), nullptr, device_place.x(), device_place.y(), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

// The system takes where the last message found the pointer for the place that is held, but the
// pointer may have gone on since the press. Sent, not posted as Qt would, so that no further
// message comes between; returns when the move has ended. Qt makes up the release, which the system
// had.
bool system_moves(QWidget& window, const QMouseEvent& press) {
    if (!can_be_followed(press)) return false;
    const QPoint inside = (press.scenePosition() * window.devicePixelRatio()).toPoint();
    POINT held{inside.x(), inside.y()};
    ClientToScreen(handle_of(window), &held);
    const DWORD seen = GetMessagePos();
    const QPoint way(static_cast<short>(LOWORD(seen)) - static_cast<int>(held.x),
                     static_cast<short>(HIWORD(seen)) - static_cast<int>(held.y));
    put(window, device_place_of(window) + way);
    ReleaseCapture();
    SendMessageW(handle_of(window), WM_SYSCOMMAND, SC_MOVE | HTCAPTION, 0);
    return true;
}

bool system_resizes(QWidget&, Qt::Edges, const QMouseEvent&) { return false; }

WindowGrip::WindowGrip(QWidget& window, QPointF pointer)
    : window_(window), pointer_(pointer), device_place_(device_place_of(window)) {}

void WindowGrip::follow(QPointF pointer) {
    put(window_, device_place_ + ((pointer - pointer_) * window_.devicePixelRatio()).toPoint());
}

}  // namespace brusbo
