#include "mainwindow/title_bar.h"

#include <QMouseEvent>

#include "platform/input_gate.h"

namespace brusbo {

TitleBar::TitleBar(QWidget* window, const ElementLook& look, Picture picture)
    : Image(window, look, picture) {}

void TitleBar::Namnlist_MouseDown(const QMouseEvent& press) {
    release_capture();
    // X11's window managers can move a window too, but a button that is released while the request
    // is on its way leaves it stuck to the pointer.
    if (grip_ || system_moves(*window(), press)) return;
    grip_.emplace(*window(), InputGate::instance().pointer());
    button_ = press.button();
}

void TitleBar::mouseMoveEvent(QMouseEvent* event) {
    // A release that never arrived, as when a modal window came up, ends the move too.
    if (!event->buttons().testFlag(button_)) grip_.reset();
    if (grip_) grip_->follow(InputGate::instance().pointer());
}

void TitleBar::mouseReleaseEvent(QMouseEvent* event) {
    if (!grip_ || event->button() != button_) return;
    grip_->follow(InputGate::instance().pointer());
    grip_.reset();
}

}  // namespace brusbo
