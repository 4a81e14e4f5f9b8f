#pragma once

#include <QKeyEvent>
#include <QObject>
#include <utility>

namespace brusbo {

/// Return or Enter, not held down.
bool is_return(const QKeyEvent& event);

bool is_arrow_back(const QKeyEvent& event);
bool is_arrow_on(const QKeyEvent& event);

/// What the program adds to Qt's keyboard. Lives as long as the program takes keys; created after
/// the InputGate, so that it sees them first.
///
/// Presses of a key that is held down are marked as repeats where Qt has not: X11 tells of each by
/// a release and a press of one moment, and Qt sees that only where it has read both at once.
class Keyboard : public QObject {
   public:
    Keyboard();

    /// Whether what has the keyboard focus is to be marked: from the latest key that moved the
    /// focus, or pressed what has it, to the next press of the mouse.
    static bool marks_focus() { return marks_focus_; }

   protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

   private:
    static inline bool marks_focus_ = false;

    std::pair<quint32, quint64> released_;  ///< the latest key, by its scan code, and when
};

}  // namespace brusbo
