#include "platform/keyboard.h"

#include <QApplication>
#include <QWidget>

#include "platform/input_gate.h"

namespace brusbo {

namespace {

/// Whether the key moves the focus, or presses what has it.
bool steers_focus(const QKeyEvent& event) {
    const int key = event.key();
    return key == Qt::Key_Tab || key == Qt::Key_Backtab || key == Qt::Key_Space ||
           is_arrow_back(event) || is_arrow_on(event) || is_return(event);
}

}  // namespace

bool is_return(const QKeyEvent& event) {
    return (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) && !event.isAutoRepeat();
}

bool is_arrow_back(const QKeyEvent& event) {
    return event.key() == Qt::Key_Left || event.key() == Qt::Key_Up;
}

bool is_arrow_on(const QKeyEvent& event) {
    return event.key() == Qt::Key_Right || event.key() == Qt::Key_Down;
}

Keyboard::Keyboard() {
    marks_focus_ = false;
    qApp->installEventFilter(this);
}

bool Keyboard::eventFilter(QObject* receiver, QEvent* event) {
    const auto* const key = dynamic_cast<const QKeyEvent*>(event);
    const bool press = event->type() == QEvent::KeyPress;
    if (key != nullptr && event->spontaneous()) {
        const std::pair moment(key->nativeScanCode(), key->timestamp());
        if (event->type() == QEvent::KeyRelease) released_ = moment;
        if (press && !key->isAutoRepeat() && moment.first != 0 && moment == released_) {
            QKeyEvent repeat(key->type(), key->key(), key->modifiers(), key->nativeScanCode(),
                             key->nativeVirtualKey(), key->nativeModifiers(), key->text(), true);
            QCoreApplication::sendEvent(receiver, &repeat);
            return true;
        }
    }
    // What is kept comes again when its turn has come.
    if (InputGate::instance().closed()) return false;
    const bool marks =
        marks_focus_ ? event->type() != QEvent::MouseButtonPress : press && steers_focus(*key);
    QWidget* const focus = QApplication::focusWidget();
    if (std::exchange(marks_focus_, marks) != marks && focus != nullptr) focus->update();
    return false;
}

}  // namespace brusbo
