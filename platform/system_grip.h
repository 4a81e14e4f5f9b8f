#pragma once

#include <QMouseEvent>
#include <QWidget>

namespace brusbo {

// Where only the system can move and resize windows, as on Wayland, these let it do so with the
// pointer until the button of `press` is released, which the program is not told. False where it is
// left to the program; nothing has happened then.

bool system_moves(QWidget& window, const QMouseEvent& press);
bool system_resizes(QWidget& window, Qt::Edges edges, const QMouseEvent& press);

}  // namespace brusbo
