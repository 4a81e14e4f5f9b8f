#include "tests/display/harness/x_client.h"

#include <xcb/xtest.h>

#include <cstdlib>
#include <cstring>
#include <stdexcept>

#include "tests/display/harness/waiting.h"

namespace brusbo::display {

namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

/// Takes a reply; null where the server answers with an error.
template <typename Reply>
std::unique_ptr<Reply, Free> own(Reply* reply) {
    return std::unique_ptr<Reply, Free>(reply);
}

}  // namespace

XClient::XClient(const std::string& display) : connection_(xcb_connect(display.c_str(), nullptr)) {
    if (xcb_connection_has_error(connection()) != 0)
        throw std::runtime_error("no X server at " + display);
    screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection())).data;
}

xcb_atom_t XClient::atom(const std::string& name) const {
    const auto cookie =
        xcb_intern_atom(connection(), 0, static_cast<std::uint16_t>(name.size()), name.c_str());
    return own(xcb_intern_atom_reply(connection(), cookie, nullptr))->atom;
}

QImage XClient::image(const QRect& area) const {
    const QRect seen = area & QRect({0, 0}, size());
    const auto cookie = xcb_get_image(
        connection(), XCB_IMAGE_FORMAT_Z_PIXMAP, root(), static_cast<std::int16_t>(seen.x()),
        static_cast<std::int16_t>(seen.y()), static_cast<std::uint16_t>(seen.width()),
        static_cast<std::uint16_t>(seen.height()), ~0U);
    const auto reply = own(xcb_get_image_reply(connection(), cookie, nullptr));
    if (!reply) return {};
    const QImage pixels(xcb_get_image_data(reply.get()), seen.width(), seen.height(),
                        4 * seen.width(), QImage::Format_RGB32);
    return pixels.copy();
}

void XClient::fake(std::uint8_t type, std::uint8_t detail, QPoint place) const {
    xcb_test_fake_input(connection(), type, detail, XCB_CURRENT_TIME, root(),
                        static_cast<std::int16_t>(place.x()), static_cast<std::int16_t>(place.y()),
                        0);
    synchronise();
}

void XClient::synchronise() const {
    own(xcb_get_input_focus_reply(connection(), xcb_get_input_focus(connection()), nullptr));
}

void XClient::point_at(QPoint place) const { fake(XCB_MOTION_NOTIFY, 0, place); }

void XClient::press(int button) const { fake(XCB_BUTTON_PRESS, static_cast<std::uint8_t>(button)); }

void XClient::release(int button) const {
    fake(XCB_BUTTON_RELEASE, static_cast<std::uint8_t>(button));
}

void XClient::click(QPoint place, int button) const {
    point_at(place);
    press(button);
    release(button);
}

void XClient::wait_for_free_pointer() const {
    wait_for("the pointer", [this] {
        const auto cookie =
            xcb_grab_pointer(connection(), 0, root(), 0, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC,
                             XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
        const auto reply = own(xcb_grab_pointer_reply(connection(), cookie, nullptr));
        return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
    });
    xcb_ungrab_pointer(connection(), XCB_CURRENT_TIME);
    synchronise();
}

void XClient::type(const std::vector<Key>& keys) const {
    for (auto key = keys.begin(); key != keys.end(); ++key) fake(XCB_KEY_PRESS, key_code(*key));
    for (auto key = keys.rbegin(); key != keys.rend(); ++key) fake(XCB_KEY_RELEASE, key_code(*key));
}

std::uint8_t XClient::key_code(Key key) const {
    const xcb_setup_t* const setup = xcb_get_setup(connection());
    const int first = setup->min_keycode;
    const int count = setup->max_keycode - first + 1;
    const auto cookie = xcb_get_keyboard_mapping(connection(), setup->min_keycode,
                                                 static_cast<std::uint8_t>(count));
    const auto reply = own(xcb_get_keyboard_mapping_reply(connection(), cookie, nullptr));
    const xcb_keysym_t* const symbols = xcb_get_keyboard_mapping_keysyms(reply.get());
    for (int code = 0; code < count; ++code)
        if (symbols[code * reply->keysyms_per_keycode] == key)
            return static_cast<std::uint8_t>(first + code);
    throw std::runtime_error("the keyboard lacks a key");
}

std::vector<WindowId> XClient::children(WindowId window) const {
    const auto reply =
        own(xcb_query_tree_reply(connection(), xcb_query_tree(connection(), window), nullptr));
    if (!reply) return {};
    const WindowId* const first = xcb_query_tree_children(reply.get());
    return {first, first + xcb_query_tree_children_length(reply.get())};
}

void XClient::collect(WindowId window, const std::string& window_class,
                      std::vector<WindowId>& found) const {
    for (const WindowId child : children(window)) {
        const auto cookie =
            xcb_get_property(connection(), 0, child, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0, 64);
        const auto reply = own(xcb_get_property_reply(connection(), cookie, nullptr));
        if (!reply) continue;
        const std::string text(
            static_cast<const char*>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get())));
        if (text.find(window_class + '\0') == 0) {
            if (is_viewable(child)) found.push_back(child);
        } else {
            collect(child, window_class, found);
        }
    }
}

std::vector<WindowId> XClient::windows_of(const std::string& window_class) const {
    std::vector<WindowId> found;
    collect(root(), window_class, found);
    return found;
}

bool XClient::is_viewable(WindowId window) const {
    const auto cookie = xcb_get_window_attributes(connection(), window);
    const auto reply = own(xcb_get_window_attributes_reply(connection(), cookie, nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

bool XClient::is_unmanaged(WindowId window) const {
    const auto cookie = xcb_get_window_attributes(connection(), window);
    const auto reply = own(xcb_get_window_attributes_reply(connection(), cookie, nullptr));
    return reply && reply->override_redirect != 0;
}

QRect XClient::place(WindowId window) const {
    const auto size =
        own(xcb_get_geometry_reply(connection(), xcb_get_geometry(connection(), window), nullptr));
    const auto cookie = xcb_translate_coordinates(connection(), window, root(), 0, 0);
    const auto corner = own(xcb_translate_coordinates_reply(connection(), cookie, nullptr));
    if (!size || !corner) return {};
    return {corner->dst_x, corner->dst_y, size->width, size->height};
}

std::vector<std::uint32_t> XClient::property(WindowId window, const std::string& name) const {
    const auto cookie =
        xcb_get_property(connection(), 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, 256);
    const auto reply = own(xcb_get_property_reply(connection(), cookie, nullptr));
    if (!reply || reply->format != 32) return {};
    std::vector<std::uint32_t> values(reply->value_len);
    std::memcpy(values.data(), xcb_get_property_value(reply.get()), 4 * values.size());
    return values;
}

bool XClient::has_atom(WindowId window, const std::string& name, const std::string& value) const {
    const xcb_atom_t wanted = atom(value);
    for (const std::uint32_t found : property(window, name))
        if (found == wanted) return true;
    return false;
}

std::string XClient::title(WindowId window) const {
    const auto cookie = xcb_get_property(connection(), 0, window, atom("_NET_WM_NAME"),
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, 256);
    const auto reply = own(xcb_get_property_reply(connection(), cookie, nullptr));
    if (!reply) return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
}

WindowId XClient::focus() const {
    return own(xcb_get_input_focus_reply(connection(), xcb_get_input_focus(connection()), nullptr))
        ->focus;
}

void XClient::give_focus(WindowId window) const {
    xcb_set_input_focus(connection(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    synchronise();
}

void XClient::send(WindowId to, WindowId about, const std::string& message,
                   const std::vector<std::uint32_t>& data, std::uint32_t mask) const {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = about;
    event.type = atom(message);
    for (std::size_t i = 0; i < data.size(); ++i) event.data.data32[i] = data[i];
    xcb_send_event(connection(), 0, to, mask, reinterpret_cast<const char*>(&event));
    synchronise();
}

void XClient::request_close(WindowId window) const {
    send(window, window, "WM_PROTOCOLS", {atom("WM_DELETE_WINDOW"), XCB_CURRENT_TIME},
         XCB_EVENT_MASK_NO_EVENT);
}

void XClient::ask_manager(WindowId window, const std::string& message,
                          const std::vector<std::uint32_t>& data) const {
    send(root(), window, message, data,
         XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT);
}

}  // namespace brusbo::display
