#include "mainwindow/title_bar.h"

#include <QMouseEvent>
#include <QWindow>

#include "mainwindow/layout.h"
#include "platform/system_grip.h"

namespace brusbo {

TitleBar::TitleBar(QWidget* window)
    : Image(window, main_layout::Namnlist, brusbo::picture("title-bar")) {}

void TitleBar::Namnlist_MouseDown(const QMouseEvent& press) {
    // X11's window managers can move a window too, but a button that is released while the request
    // is on its way leaves it stuck to the pointer.
    if (system_moves(*window(), press)) return;
    if (moving_button_ != Qt::NoButton) return;
    moving_button_ = press.button();
    grip_ = press.globalPosition().toPoint() - window()->windowHandle()->position();
}

// By the client area: how wide the frame is, the program may not have heard before the move begins.
void TitleBar::move_window(const QMouseEvent& event) {
    window()->windowHandle()->setPosition(event.globalPosition().toPoint() - grip_);
}

void TitleBar::mousePressEvent(QMouseEvent* event) { Namnlist_MouseDown(*event); }

void TitleBar::mouseMoveEvent(QMouseEvent* event) {
    if (moving_button_ == Qt::NoButton) return;
    // A release that never arrived, as when a modal window came up, ends the move too.
    if (!event->buttons().testFlag(moving_button_)) {
        moving_button_ = Qt::NoButton;
        return;
    }
    move_window(*event);
}

void TitleBar::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == moving_button_) {
        move_window(*event);
        moving_button_ = Qt::NoButton;
    }
}

}  // namespace brusbo
