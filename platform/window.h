#pragma once

#include <QEventLoop>
#include <QWidget>

namespace brusbo {

/// A window of the program. It never closes by itself: a close request from anywhere only calls
/// close_requested(), in its turn after running actions; no key closes it.
class Window : public QWidget {
   public:
    /// The size is that of the client area, in device-independent pixels, and fixed.
    Window(const char* name, const char* caption, Qt::WindowFlags flags, QSize client);

    /// Shows the window, or brings it up, and makes it the active one.
    void show_active();

    /// Leaves the window to the task bar, also where it has only just come back from it.
    void minimise();

    /// Shows the window modally, in front of the window that was active, and returns when it has
    /// been hidden. Must run inside an action of the InputGate.
    void show_modal();

    /// Places the client area in the middle of an area of the screen, in device-independent pixels.
    /// A display that places windows itself, as Wayland does, pays no heed.
    void center_on(const QRect& area);

   protected:
    /// The window has become the program's active window: it was shown, or another window of the
    /// program was active before. Runs as an action of its own.
    virtual void Form_Activate() {}

    /// The window manager was asked to close the window, which is ignored unless this does
    /// something. Runs as an action of its own, and not while a modal window is in front.
    virtual void close_requested() {}

    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) final;

   private:
    void became_active();

    QEventLoop* modal_loop_ = nullptr;  ///< while the window is shown modally
};

/// The area of the screen that windows are centred on, device-independent pixels.
QRect screen_area();

}  // namespace brusbo
