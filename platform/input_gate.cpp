#include "platform/input_gate.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWindow>
#include <cassert>
#include <utility>

namespace brusbo {

namespace {

InputGate* the_gate = nullptr;

bool is_mouse(const QEvent& event) {
    return event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonRelease ||
           event.type() == QEvent::MouseButtonDblClick || event.type() == QEvent::MouseMove;
}

bool is_input(QObject* receiver, const QEvent& event) {
    switch (event.type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::InputMethod:
            return receiver->isWindowType() || receiver->isWidgetType();
        // Widgets that move under a resting pointer are told so too; only the pointer's own way
        // in and out of a window is input.
        case QEvent::Enter:
        case QEvent::Leave:
            return receiver->isWindowType();
        default:
            return false;
    }
}

QWidget* top_level_of(QObject* receiver) {
    if (auto* widget = qobject_cast<QWidget*>(receiver)) return widget->window();
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget* widget : windows)
        if (widget->windowHandle() == receiver) return widget;
    return nullptr;
}

}  // namespace

bool blocked_by_modal(const QWidget& widget) {
    const QWidget* const modal = QApplication::activeModalWidget();
    return modal != nullptr && widget.window() != modal;
}

InputGate::InputGate() {
    the_gate = this;
    qApp->installEventFilter(this);
}

InputGate::~InputGate() { the_gate = nullptr; }

InputGate& InputGate::instance() {
    assert(the_gate != nullptr);
    return *the_gate;
}

void InputGate::run(Function action) {
    deliver([this, action = std::move(action)] {
        hold();
        release(action);
    });
}

void InputGate::hold() {
    running_ = true;
    ++action_number_;
}

void InputGate::release(const Function& last_step) {
    last_step();
    running_ = false;
    if (!kept_.empty()) deliver_kept_soon();
}

void InputGate::deliver(Function input) {
    if (closed())
        kept_.push_back({std::move(input), {}});
    else
        input();
}

bool InputGate::eventFilter(QObject* receiver, QEvent* event) {
    if (!closed()) return false;
    // Its key follows as an event of its own.
    if (event->type() == QEvent::ShortcutOverride) return true;
    if (!is_input(receiver, *event)) return false;
    keep(receiver, *event);
    return true;
}

void InputGate::keep(QObject* receiver, const QEvent& event) {
    KeptEvent kept{receiver, std::unique_ptr<QEvent>(event.clone()), {}, {}};
    if (is_mouse(event)) {
        const auto& mouse = static_cast<const QMouseEvent&>(event);
        kept.window_place = mouse.scenePosition();
        kept.screen_place = mouse.globalPosition();
    }
    // A pointer on its way needs no more than its last place.
    if (event.type() == QEvent::MouseMove && !kept_.empty() && !kept_.back().function) {
        KeptEvent& last = kept_.back().event;
        if (last.receiver == receiver && last.event->type() == QEvent::MouseMove &&
            static_cast<const QMouseEvent&>(*last.event).buttons() ==
                static_cast<const QMouseEvent&>(event).buttons()) {
            last = std::move(kept);
            return;
        }
    }
    kept_.push_back({{}, std::move(kept)});
}

void InputGate::send(const KeptEvent& kept) {
    if (!is_mouse(*kept.event)) {
        QCoreApplication::sendEvent(kept.receiver, kept.event.get());
        return;
    }
    // A mouse event shares its place in window and screen with the pointer, and the pointer has
    // gone on.
    const auto& mouse = static_cast<const QMouseEvent&>(*kept.event);
    QMouseEvent again(mouse.type(), mouse.position(), kept.window_place, kept.screen_place,
                      mouse.button(), mouse.buttons(), mouse.modifiers(), mouse.pointingDevice());
    again.setTimestamp(mouse.timestamp());
    QCoreApplication::sendEvent(kept.receiver, &again);
}

void InputGate::deliver_kept_soon() {
    QMetaObject::invokeMethod(this, &InputGate::deliver_kept, Qt::QueuedConnection);
}

void InputGate::deliver_kept() {
    if (held() || delivering_) return;
    delivering_ = true;
    while (!kept_.empty() && delivering_ && !held()) {
        const Kept next = std::move(kept_.front());
        kept_.pop_front();
        if (next.function) {
            next.function();
        } else if (next.event.receiver) {
            const QWidget* const window = top_level_of(next.event.receiver);
            if (window != nullptr && !blocked_by_modal(*window)) send(next.event);
        }
    }
    delivering_ = false;
}

InputGate::Opening::Opening()
    : running_(std::exchange(instance().running_, false)),
      delivering_(std::exchange(instance().delivering_, false)),
      outer_(std::exchange(instance().innermost_, this)) {
    if (!instance().kept_.empty()) instance().deliver_kept_soon();
}

InputGate::Opening::~Opening() {
    instance().innermost_ = outer_;
    instance().running_ = running_;
    instance().delivering_ = delivering_;
}

}  // namespace brusbo
