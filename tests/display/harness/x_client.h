#pragma once

#include <xcb/xcb.h>

#include <QImage>
#include <QRect>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace brusbo::display {

/// Asks every few milliseconds until the answer is true or not empty, and returns it. Throws when
/// it has not come in half a minute.
template <typename Question>
auto wait_for(const std::string& what, Question question) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (true) {
        if (auto answer = question()) return answer;
        if (std::chrono::steady_clock::now() > deadline)
            throw std::runtime_error("waited in vain for " + what);
        std::this_thread::sleep_for(std::chrono::milliseconds(3));
    }
}

using WindowId = xcb_window_t;

/// Keys by their codes on the keyboard that our X servers have.
enum Key : std::uint8_t { key_escape = 9, key_Alt = 64, key_F2 = 68, key_F4 = 70 };

/// A person at an X display: sees its pixels, has the mouse and the keyboard, and may ask what a
/// task bar asks. Places are pixels of the screen. What it does has reached the server when the
/// call returns. A window that is gone has an empty place and no properties.
class XClient {
   public:
    explicit XClient(const std::string& display);

    xcb_connection_t* connection() const { return connection_.get(); }
    WindowId root() const { return screen_->root; }
    QSize size() const { return {screen_->width_in_pixels, screen_->height_in_pixels}; }
    xcb_atom_t atom(const std::string& name) const;
    /// Of our own, small and not shown.
    WindowId create_window() const;

    /// What is seen there.
    QImage image(const QRect& area) const;

    void point_at(QPoint place) const { fake(XCB_MOTION_NOTIFY, 0, place); }
    void press(int button = 1) const { fake(XCB_BUTTON_PRESS, button); }
    void release(int button = 1) const { fake(XCB_BUTTON_RELEASE, button); }
    void click(QPoint place) const;
    /// A window manager may keep a press back until it has seen it, and what follows with it; where
    /// the pointer goes meanwhile, the server then takes for the place of the release. Waits until
    /// all is let go.
    void wait_for_free_pointer() const;
    /// Presses the keys in this order and releases them in the opposite one.
    void type(const std::vector<Key>& keys) const;

    /// The viewable windows of the program that the window manager's frames, or the root, hold.
    std::vector<WindowId> windows_of(const std::string& window_class) const;
    QRect place(WindowId window) const;
    std::vector<std::uint32_t> property(WindowId window, const std::string& name) const;
    WindowId focus() const;

    /// As a window manager does when a person closes the window.
    void request_close(WindowId window) const;
    /// Asks the window manager, as task bars do: `message` with its data.
    void ask_manager(WindowId window, const std::string& message,
                     const std::vector<std::uint32_t>& data) const;

   private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    void fake(std::uint8_t type, int detail, QPoint place = {}) const;
    void send(WindowId to, WindowId about, const std::string& message,
              const std::vector<std::uint32_t>& data, std::uint32_t mask) const;
    void synchronise() const { focus(); }

    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    xcb_screen_t* screen_ = nullptr;
};

}  // namespace brusbo::display
