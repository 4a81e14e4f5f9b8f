#include "platform/pause.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <thread>

#include "platform/input_gate.h"

namespace brusbo {

namespace {

/// Brings every change of the visible windows to the screen without waiting for the event loop.
void show_changes() {
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (!window->isVisible()) continue;
        QEvent update(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(window, &update);
    }
}

}  // namespace

void paint_and_wait(int milliseconds) {
    using std::chrono::steady_clock;
    static unsigned last_action = 0;
    static steady_clock::time_point last_deadline;

    show_changes();
    const std::chrono::milliseconds length(milliseconds);
    const auto now = steady_clock::now();
    const unsigned action = InputGate::instance().action_number();
    const bool follows = action == last_action && now < last_deadline + length;
    last_action = action;
    last_deadline = (follows ? last_deadline : now) + length;

    const auto whole = std::chrono::floor<std::chrono::milliseconds>(last_deadline - now);
    QEventLoop loop;
    QTimer::singleShot(whole, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
    std::this_thread::sleep_until(last_deadline);
}

}  // namespace brusbo
