#pragma once

#include <QObject>
#include <utility>

namespace brusbo {

/// Marks as repeats the presses of a key that is held down which Qt has not: X11 tells of each by a
/// release and a press of one moment, and Qt sees that only where it has read both at once. Lives
/// as long as the program takes keys; created after the InputGate, so that it sees them first.
class KeyRepeats : public QObject {
   public:
    KeyRepeats();

   protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

   private:
    std::pair<quint32, quint64> released_;  ///< the latest key, by its scan code, and when
};

}  // namespace brusbo
