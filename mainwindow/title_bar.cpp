#include "mainwindow/title_bar.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QWindow>

#include "mainwindow/layout.h"

namespace brusbo {

TitleBar::TitleBar(QWidget* window) : Image(window, main_layout::Namnlist, Picture::title_bar) {}

void TitleBar::Namnlist_MouseDown(Qt::MouseButton button, QPoint global_place) {
    // Only the compositor can move a window on Wayland. X11's window managers can too, but a
    // button that is released while the request is on its way leaves the window stuck to the
    // pointer.
    if (QGuiApplication::platformName().startsWith(QLatin1String("wayland")) &&
        window()->windowHandle()->startSystemMove())
        return;
    if (moving_button_ != Qt::NoButton) return;
    moving_button_ = button;
    grip_ = global_place - window()->pos();
}

void TitleBar::mousePressEvent(QMouseEvent* event) {
    Namnlist_MouseDown(event->button(), event->globalPosition().toPoint());
}

void TitleBar::mouseMoveEvent(QMouseEvent* event) {
    if (moving_button_ == Qt::NoButton) return;
    // A release that never arrived, as when a modal window came up, ends the move too.
    if (!event->buttons().testFlag(moving_button_)) {
        moving_button_ = Qt::NoButton;
        return;
    }
    window()->move(event->globalPosition().toPoint() - grip_);
}

void TitleBar::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == moving_button_) {
        window()->move(event->globalPosition().toPoint() - grip_);
        moving_button_ = Qt::NoButton;
    }
}

}  // namespace brusbo
