#pragma once

#include <xcb/xcb.h>

#include <QImage>
#include <QPoint>
#include <QRect>
#include <memory>
#include <string>
#include <vector>

namespace brusbo::display {

using WindowId = xcb_window_t;

/// Keys by their X names.
enum Key : xcb_keysym_t { key_escape = 0xFF1B, key_F2 = 0xFFBF, key_F4 = 0xFFC1, key_Alt = 0xFFE9 };

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

    /// What is seen there.
    QImage image(const QRect& area) const;

    void point_at(QPoint place) const;
    void press(int button = 1) const;
    void release(int button = 1) const;
    void click(QPoint place, int button = 1) const;
    /// A window manager may keep a press back until it has seen it, and what follows with it; where
    /// the pointer goes meanwhile, the server then takes for the place of the release. Waits until
    /// all is let go.
    void wait_for_free_pointer() const;
    /// Presses the keys in this order and releases them in the opposite one.
    void type(const std::vector<Key>& keys) const;

    /// The viewable windows of the program that the window manager's frames, or the root, hold.
    std::vector<WindowId> windows_of(const std::string& window_class) const;
    bool is_viewable(WindowId window) const;
    /// Whether the window manager leaves it alone, as menus are.
    bool is_unmanaged(WindowId window) const;
    QRect place(WindowId window) const;
    std::vector<std::uint32_t> property(WindowId window, const std::string& name) const;
    bool has_atom(WindowId window, const std::string& property, const std::string& value) const;
    std::string title(WindowId window) const;
    WindowId focus() const;
    void give_focus(WindowId window) const;

    /// As a window manager does when a person closes the window.
    void request_close(WindowId window) const;
    /// Asks the window manager, as task bars do: `message` with its data.
    void ask_manager(WindowId window, const std::string& message,
                     const std::vector<std::uint32_t>& data) const;

   private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    std::vector<WindowId> children(WindowId window) const;
    void collect(WindowId window, const std::string& window_class,
                 std::vector<WindowId>& found) const;
    void fake(std::uint8_t type, std::uint8_t detail, QPoint place = {}) const;
    std::uint8_t key_code(Key key) const;
    void send(WindowId to, WindowId about, const std::string& message,
              const std::vector<std::uint32_t>& data, std::uint32_t mask) const;
    void synchronise() const;

    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    xcb_screen_t* screen_ = nullptr;
};

}  // namespace brusbo::display
