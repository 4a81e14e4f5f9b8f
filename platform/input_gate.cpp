#include "platform/input_gate.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <memory>
#include <thread>
#include <utility>

namespace brusbo {

namespace {

/// Touches pass: unused, they come again as the mouse's. Widgets that move under the pointer are
/// told so; only its own way in and out of a window is input.
bool is_input(const QObject& receiver, QEvent::Type type) {
    if (type == QEvent::Enter || type == QEvent::Leave) return receiver.isWindowType();
    const bool mouse_or_key = type >= QEvent::MouseButtonPress && type <= QEvent::KeyRelease;
    return (receiver.isWindowType() || receiver.isWidgetType()) &&
           (mouse_or_key || type == QEvent::Wheel || type == QEvent::InputMethod);
}

/// What sends an event as it is now, if its receiver then takes input.
InputGate::Function redelivery(QObject& to, const QEvent& event) {
    const std::shared_ptr<QEvent> copy(event.clone());
    const auto* const mouse = dynamic_cast<const QMouseEvent*>(copy.get());
    // A mouse event shares its place in window and screen with the pointer, which goes on.
    const QPointF window_place = mouse != nullptr ? mouse->scenePosition() : QPointF();
    const QPointF screen_place = mouse != nullptr ? mouse->globalPosition() : QPointF();
    return [=, receiver = QPointer(&to)] {
        if (!receiver || !takes_input(*receiver)) return;
        if (mouse == nullptr) return void(QCoreApplication::sendEvent(receiver, copy.get()));
        QMouseEvent again(mouse->type(), mouse->position(), window_place, screen_place,
                          mouse->button(), mouse->buttons(), mouse->modifiers(),
                          mouse->pointingDevice());
        QCoreApplication::sendEvent(receiver, &again);
    };
}

}  // namespace

bool takes_input(const QObject& receiver) {
    const auto* const widget = qobject_cast<const QWidget*>(&receiver);
    const auto* const window = qobject_cast<const QWindow*>(
        widget == nullptr ? &receiver : widget->window()->windowHandle());
    const QWindow* const modal = QGuiApplication::modalWindow();
    return window != nullptr && window->isVisible() && (modal == nullptr || modal == window);
}

InputGate::InputGate() {
    instance_ = this;
    qApp->installEventFilter(this);
}

void InputGate::run(Function action) {
    deliver([this, action = std::move(action)] {
        state_.running = true;
        deadline_ = {};
        action();
        state_.running = false;
        QMetaObject::invokeMethod(this, &InputGate::deliver_kept, Qt::QueuedConnection);
    });
}

void InputGate::deliver(Function input) {
    if (!closed()) return input();
    kept_.push_back(std::move(input));
    movement_last_ = false;
}

void InputGate::open_for(QEventLoop& loop) {
    const State outer = std::exchange(state_, {false, false, &loop});
    QMetaObject::invokeMethod(this, &InputGate::deliver_kept, Qt::QueuedConnection);
    loop.exec();
    state_ = outer;
}

void InputGate::pause(int milliseconds) {
    // Brings every change to the screen without waiting for the event loop.
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        QEvent update(QEvent::UpdateRequest);
        if (window->isVisible()) QCoreApplication::sendEvent(window, &update);
    }
    const std::chrono::milliseconds length(milliseconds);
    const auto now = std::chrono::steady_clock::now();
    deadline_ = (now < deadline_ + length ? deadline_ : now) + length;

    // A timer counts whole milliseconds; the rest is slept.
    QEventLoop loop;
    QTimer::singleShot(std::chrono::floor<std::chrono::milliseconds>(deadline_ - now),
                       Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
    std::this_thread::sleep_until(deadline_);
}

bool InputGate::eventFilter(QObject* receiver, QEvent* event) {
    if (!closed()) {
        if (receiver->isWindowType() && event->isSinglePointEvent())
            pointer_ = static_cast<QSinglePointEvent*>(event)->globalPosition();
        return false;
    }
    // Its key follows as an event of its own.
    if (event->type() == QEvent::ShortcutOverride) return true;
    if (!is_input(*receiver, event->type())) return false;
    const bool movement = event->type() == QEvent::MouseMove;
    if (movement && movement_last_ && !kept_.empty()) kept_.pop_back();
    deliver(redelivery(*receiver, *event));
    movement_last_ = movement;
    return true;
}

void InputGate::deliver_kept() {
    if (state_.held() || state_.delivering) return;
    state_.delivering = true;
    while (!kept_.empty() && state_.delivering && !state_.held()) {
        const Function next = std::move(kept_.front());
        kept_.pop_front();
        next();
    }
    state_.delivering = false;
}

}  // namespace brusbo
