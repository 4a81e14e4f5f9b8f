#pragma once

#include <QMouseEvent>
#include <QWidget>

namespace brusbo {

/// Where the system is the one to move and resize windows, lets it do so with the pointer until the
/// button of `press` is released, which the element that was pressed is not told. False where it is
/// left to the program: on X11, and on Windows for all but a left button that is still down;
/// nothing has happened then.
bool system_moves(QWidget& window, const QMouseEvent& press);
/// The same for the size; on Windows, too, left to the program.
bool system_resizes(QWidget& window, Qt::Edges edges, const QMouseEvent& press);

/// A hold of the mouse on a window that the program moves itself, by the pointer's distance in
/// device pixels where the window system takes these, else in logical ones. It goes by the client
/// area: how wide the frame is, the program may not have heard before the move begins.
class WindowGrip {
   public:
    /// The pointer is at a place of the screen, in device-independent pixels.
    WindowGrip(QWidget& window, QPointF pointer);
    void follow(QPointF pointer);

   private:
    QWidget& window_;
    QPointF pointer_;
    QPoint place_;         ///< the window's, device-independent pixels
    QPoint device_place_;  ///< the same for the window system
    bool moved_ = false;
};

}  // namespace brusbo
