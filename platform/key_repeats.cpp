#include "platform/key_repeats.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace brusbo {

KeyRepeats::KeyRepeats() { qApp->installEventFilter(this); }

bool KeyRepeats::eventFilter(QObject* receiver, QEvent* event) {
    const bool press = event->type() == QEvent::KeyPress;
    if ((!press && event->type() != QEvent::KeyRelease) || !event->spontaneous()) return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const std::pair moment(key.nativeScanCode(), key.timestamp());
    if (!press) released_ = moment;
    if (!press || key.isAutoRepeat() || moment.first == 0 || moment != released_) return false;
    QKeyEvent repeat(key.type(), key.key(), key.modifiers(), key.nativeScanCode(),
                     key.nativeVirtualKey(), key.nativeModifiers(), key.text(), true);
    QCoreApplication::sendEvent(receiver, &repeat);
    return true;
}

}  // namespace brusbo
