#include "tests/display/harness/x_client.h"

#include <xcb/xtest.h>

#include <algorithm>
#include <cstdlib>
#include <span>

namespace brusbo::display {

namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

/// Waits for the reply to a request; null where the server answers with an error.
template <auto take_reply>
auto ask(const XClient& client, auto request) {
    auto* const reply = take_reply(client.connection(), request, nullptr);
    return std::unique_ptr<std::remove_pointer_t<decltype(reply)>, Free>(reply);
}

/// The values of a property that has values of this size.
template <typename Value>
std::vector<Value> values(const XClient& client, WindowId window, xcb_atom_t property) {
    const auto reply = ask<xcb_get_property_reply>(
        client, xcb_get_property(client.connection(), 0, window, property,
                                 XCB_GET_PROPERTY_TYPE_ANY, 0, 256));
    if (!reply || reply->format != 8 * sizeof(Value)) return {};
    const auto* const first = static_cast<const Value*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

}  // namespace

XClient::XClient(const std::string& display) : connection_(xcb_connect(display.c_str(), nullptr)) {
    if (xcb_connection_has_error(connection()) != 0)
        throw std::runtime_error("no X server at " + display);
    screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection())).data;
}

xcb_atom_t XClient::atom(const std::string& name) const {
    const auto length = static_cast<std::uint16_t>(name.size());
    const auto request = xcb_intern_atom(connection(), 0, length, name.c_str());
    return ask<xcb_intern_atom_reply>(*this, request)->atom;
}

WindowId XClient::create_window() const {
    const WindowId window = xcb_generate_id(connection());
    xcb_create_window(connection(), XCB_COPY_FROM_PARENT, window, root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    return window;
}

QImage XClient::image(const QRect& area) const {
    const QRect seen = area & QRect({0, 0}, size());
    const auto request = xcb_get_image(
        connection(), XCB_IMAGE_FORMAT_Z_PIXMAP, root(), static_cast<std::int16_t>(seen.x()),
        static_cast<std::int16_t>(seen.y()), static_cast<std::uint16_t>(seen.width()),
        static_cast<std::uint16_t>(seen.height()), ~0U);
    const auto reply = ask<xcb_get_image_reply>(*this, request);
    if (!reply) return {};
    const QImage pixels(xcb_get_image_data(reply.get()), seen.width(), seen.height(),
                        4 * seen.width(), QImage::Format_RGB32);
    return pixels.copy();
}

void XClient::fake(std::uint8_t type, int detail, QPoint place) const {
    xcb_test_fake_input(connection(), type, static_cast<std::uint8_t>(detail), XCB_CURRENT_TIME,
                        root(), static_cast<std::int16_t>(place.x()),
                        static_cast<std::int16_t>(place.y()), 0);
    synchronise();
}

void XClient::click(QPoint place) const {
    point_at(place);
    press();
    release();
}

void XClient::wait_for_free_pointer() const {
    wait_for("the pointer", [this] {
        const auto request =
            xcb_grab_pointer(connection(), 0, root(), 0, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC,
                             XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
        const auto reply = ask<xcb_grab_pointer_reply>(*this, request);
        return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
    });
    xcb_ungrab_pointer(connection(), XCB_CURRENT_TIME);
    synchronise();
}

void XClient::type(const std::vector<Key>& keys) const {
    for (auto key = keys.begin(); key != keys.end(); ++key) fake(XCB_KEY_PRESS, *key);
    for (auto key = keys.rbegin(); key != keys.rend(); ++key) fake(XCB_KEY_RELEASE, *key);
}

std::vector<WindowId> XClient::windows_of(const std::string& window_class) const {
    std::vector<WindowId> found;
    std::vector<WindowId> others{root()};
    while (!others.empty()) {
        const auto tree =
            ask<xcb_query_tree_reply>(*this, xcb_query_tree(connection(), others.back()));
        others.pop_back();
        if (!tree) continue;
        for (const WindowId child :
             std::span(xcb_query_tree_children(tree.get()), tree->children_len)) {
            const auto name = values<char>(*this, child, XCB_ATOM_WM_CLASS);
            const auto state = ask<xcb_get_window_attributes_reply>(
                *this, xcb_get_window_attributes(connection(), child));
            if (std::string(name.begin(), std::ranges::find(name, '\0')) != window_class)
                others.push_back(child);
            else if (state && state->map_state == XCB_MAP_STATE_VIEWABLE)
                found.push_back(child);
        }
    }
    return found;
}

QRect XClient::place(WindowId window) const {
    const auto size = ask<xcb_get_geometry_reply>(*this, xcb_get_geometry(connection(), window));
    const auto corner = ask<xcb_translate_coordinates_reply>(
        *this, xcb_translate_coordinates(connection(), window, root(), 0, 0));
    if (!size || !corner) return {};
    return {corner->dst_x, corner->dst_y, size->width, size->height};
}

std::vector<std::uint32_t> XClient::property(WindowId window, const std::string& name) const {
    return values<std::uint32_t>(*this, window, atom(name));
}

WindowId XClient::focus() const {
    return ask<xcb_get_input_focus_reply>(*this, xcb_get_input_focus(connection()))->focus;
}

void XClient::send(WindowId to, WindowId about, const std::string& message,
                   const std::vector<std::uint32_t>& data, std::uint32_t mask) const {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = about;
    event.type = atom(message);
    std::ranges::copy(data, event.data.data32);
    xcb_send_event(connection(), 0, to, mask, reinterpret_cast<const char*>(&event));
    synchronise();
}

void XClient::request_close(WindowId window) const {
    send(window, window, "WM_PROTOCOLS", {atom("WM_DELETE_WINDOW"), XCB_CURRENT_TIME}, 0);
}

void XClient::ask_manager(WindowId window, const std::string& message,
                          const std::vector<std::uint32_t>& data) const {
    send(root(), window, message, data,
         XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT);
}

}  // namespace brusbo::display
