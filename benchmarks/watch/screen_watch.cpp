#include "benchmarks/watch/screen_watch.h"

#include <poll.h>
#include <xcb/damage.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <stdexcept>

namespace brusbo::display {

ScreenWatch::ScreenWatch(const std::string& display) : client_(display) {
    xcb_connection_t* const connection = client_.connection();
    const auto* const extension = xcb_get_extension_data(connection, &xcb_damage_id);
    if (extension == nullptr || extension->present == 0)
        throw std::runtime_error("the X server does not tell what is drawn");
    first_event_ = extension->first_event;
    std::free(xcb_damage_query_version_reply(connection, xcb_damage_query_version(connection, 1, 1),
                                             nullptr));
    xcb_damage_create(connection, xcb_generate_id(connection), client_.root(),
                      XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    xcb_flush(connection);
}

std::optional<Moment> ScreenWatch::wait_for_drawing(const QRect& area, Moment deadline) {
    using std::chrono::milliseconds;
    xcb_connection_t* const connection = client_.connection();
    while (true) {
        struct Free {
            void operator()(xcb_generic_event_t* event) const { std::free(event); }
        };
        const std::unique_ptr<xcb_generic_event_t, Free> event(xcb_poll_for_event(connection));
        const Moment now = Clock::now();
        if (event) {
            if ((event->response_type & 0x7FU) != first_event_ + XCB_DAMAGE_NOTIFY) continue;
            const auto& drawn =
                reinterpret_cast<const xcb_damage_notify_event_t*>(event.get())->area;
            if (area.intersects({drawn.x, drawn.y, drawn.width, drawn.height})) return now;
            continue;
        }
        if (now >= deadline) return {};
        pollfd descriptor{xcb_get_file_descriptor(connection), POLLIN, 0};
        const auto left = std::chrono::ceil<milliseconds>(deadline - now).count();
        poll(&descriptor, 1, static_cast<int>(std::min<std::int64_t>(left, 60'000)));
    }
}

void ScreenWatch::wait_for_rest(const QRect& area, Clock::duration rest) {
    while (wait_for_drawing(area, Clock::now() + rest)) {
    }
}

}  // namespace brusbo::display
