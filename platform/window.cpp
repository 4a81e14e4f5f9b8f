#include "platform/window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPointer>
#include <QScreen>
#include <QWindow>

#include "platform/fonts.h"
#include "platform/input_gate.h"

namespace brusbo {

namespace {

// The program's active window stays the same while another program has the focus.
QPointer<Window> active_window;

}  // namespace

Window::Window(const char* name, const char* caption, Qt::WindowFlags flags, QSize client)
    : QWidget(nullptr, flags) {
    setObjectName(QString::fromUtf8(name));
    setWindowTitle(QString::fromUtf8(caption));
    setFont(window_font(Font::regular));
    setFixedSize(client);
    // Made now for every window, so that all are placed alike.
    winId();
    // Some desktops hide a tool window while another program is active, which would leave the
    // players without the only window there is; a dialog stays.
    if (windowType() == Qt::Tool) setAttribute(Qt::WA_X11NetWmWindowTypeDialog);
}

void Window::show_active() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    became_active();
}

void Window::minimise() {
    // Qt minimises no window that it takes for minimised, and may not have heard yet that it has
    // come back.
    setWindowState(windowState() & ~Qt::WindowMinimized);
    showMinimized();
}

void Window::show_modal() {
    Window* const below = active_window;
    setWindowModality(Qt::ApplicationModal);
    if (below != nullptr && below != this)
        windowHandle()->setTransientParent(below->windowHandle());
    QEventLoop loop;
    modal_loop_ = &loop;
    show_active();
    InputGate::instance().open_for(loop);
    modal_loop_ = nullptr;
    windowHandle()->setTransientParent(nullptr);
    setWindowModality(Qt::NonModal);
}

void Window::center_on(const QRect& area) {
    move(area.center() - QPoint(width() - 1, height() - 1) / 2);
}

bool Window::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) became_active();
    return QWidget::event(event);
}

void Window::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous()) became_active();
}

void Window::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (event->spontaneous()) return;
    if (active_window == this) active_window = nullptr;
    if (modal_loop_ != nullptr) modal_loop_->quit();
}

void Window::closeEvent(QCloseEvent* event) {
    event->ignore();
    InputGate::instance().run([window = QPointer(this)] {
        if (window && takes_input(*window)) window->close_requested();
    });
}

void Window::became_active() {
    // The window system may tell so of a window that has been hidden meanwhile.
    if (active_window == this || !isVisible()) return;
    active_window = this;
    InputGate::instance().run([window = QPointer(this)] {
        if (window) window->Form_Activate();
    });
}

QRect screen_area() { return QGuiApplication::primaryScreen()->availableGeometry(); }

}  // namespace brusbo
