#pragma once

#include <QEventLoop>
#include <QObject>
#include <QPointF>
#include <chrono>
#include <deque>
#include <functional>

namespace brusbo {

/// Whether the window of a widget, or a QWindow, is shown and no modal window keeps input from it.
bool takes_input(const QObject& receiver);

/// Lets one action of the game run at a time. An action paints, pauses and may take seconds, while
/// events go on being processed; input that arrives meanwhile is kept, and delivered in the order
/// of its arrival when the whole action has ended. Keys that are held down stay repeats, which the
/// window system's own queue would forget; of the pointer's way only its last place remains.
///
/// The gate is closed while an action runs. A modal window or menu that the action shows opens it
/// for its own loop; what was kept before is delivered then. Once that loop is told to quit the
/// gate is closed again, although the loop may not have noticed, until the action has ended.
///
/// One instance, created after the QApplication and outliving every window. GUI thread only.
class InputGate : public QObject {
   public:
    using Function = std::function<void()>;

    InputGate();
    static InputGate& instance() { return *instance_; }

    /// Runs an action now, or after those that came before it.
    void run(Function action);

    /// Calls `input`, which is no action but stands for an event, when the gate is open.
    void deliver(Function input);

    /// Runs the loop of a window or menu that the running action has shown.
    void open_for(QEventLoop& loop);

    /// Inside an action: shows the changes, then lets so many milliseconds pass while windows go on
    /// being painted. The pauses of one action are counted from deadline to deadline, so that the
    /// time between them, painting included, does not add to them.
    void pause(int milliseconds);

    /// Whether input that arrives now is kept.
    bool closed() const { return state_.held() || (!kept_.empty() && !state_.delivering); }

    /// Where on the screen the mouse's event happened that a widget is told of, device pixels as
    /// fractions, which the widget's own event has lost.
    QPointF pointer() const { return pointer_; }

   protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

   private:
    struct State {
        bool running = false;     ///< an action
        bool delivering = false;  ///< what was kept
        /// That of the innermost window or menu that the gate was opened for.
        const QEventLoop* loop = nullptr;

        bool held() const { return running || (loop != nullptr && !loop->isRunning()); }
    };

    void deliver_kept();

    static inline InputGate* instance_ = nullptr;
    State state_;
    std::deque<Function> kept_;
    bool movement_last_ = false;  ///< the last one kept is a movement of the mouse
    QPointF pointer_;
    std::chrono::steady_clock::time_point deadline_;  ///< of the action's last pause
};

}  // namespace brusbo
