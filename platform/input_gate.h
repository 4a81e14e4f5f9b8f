#pragma once

#include <QEvent>
#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QWidget>
#include <deque>
#include <functional>
#include <memory>

namespace brusbo {

/// Whether a modal window keeps input from a widget.
bool blocked_by_modal(const QWidget& widget);

/// Lets one action of the game run at a time. An action paints, pauses and may take seconds, while
/// events go on being processed; input that arrives meanwhile is neither lost nor early: mouse,
/// wheel and key events, accessibility actions, close requests and further actions are kept and
/// delivered, in the order of their arrival, when the whole action has ended.
///
/// One instance, created after the QApplication and outliving every window. GUI thread only.
class InputGate : public QObject {
    Q_OBJECT

   public:
    using Function = std::function<void()>;

    InputGate();
    ~InputGate() override;

    static InputGate& instance();

    /// Runs an action now, or after those that came before it.
    void run(Function action);

    /// Calls `input` when no action runs, now or later. `input` itself is not an action; it stands
    /// for an event that comes from elsewhere than the window system.
    void deliver(Function input);

    /// Begins an action that goes on until `release` has called its last step.
    void hold();
    void release(const Function& last_step);

    /// Whether input that arrives now is kept.
    bool closed() const { return held() || (!kept_.empty() && !delivering_); }

    /// Counts the actions begun; what differs belongs to different actions.
    unsigned action_number() const { return action_number_; }

    /// While it lives, input flows although an action runs: for the modal windows and menus that an
    /// action shows. What was kept before is delivered first; a window that a modal one blocks does
    /// not receive it.
    class Opening {
       public:
        Opening();
        ~Opening();
        Opening(const Opening&) = delete;
        Opening& operator=(const Opening&) = delete;

        /// The window or menu has gone: input is kept again, although its loop may not have
        /// noticed yet, until the action that showed it has ended.
        void end() { ended_ = true; }

       private:
        friend InputGate;
        bool running_;
        bool delivering_;
        bool ended_ = false;
        Opening* outer_;
    };

   protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

   private:
    struct KeptEvent {
        QPointer<QObject> receiver;
        std::unique_ptr<QEvent> event;
        QPointF window_place, screen_place;  // of a mouse event
    };
    struct Kept {
        Function function;  // empty where an event was kept
        KeptEvent event;
    };

    void keep(QObject* receiver, const QEvent& event);
    bool held() const { return running_ || (innermost_ != nullptr && innermost_->ended_); }
    static void send(const KeptEvent& kept);
    void deliver_kept_soon();
    void deliver_kept();

    std::deque<Kept> kept_;
    bool running_ = false;
    bool delivering_ = false;
    Opening* innermost_ = nullptr;
    unsigned action_number_ = 0;
};

}  // namespace brusbo
