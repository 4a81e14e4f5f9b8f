// The module that the program loads when it plays its first sound.
#include <memory>
#include <string>
#include <utility>

#include "platform/sound_backend/player.h"
#include "platform/sound_backend/sound_requests.h"
#include "platform/sound_backend/wave_file.h"

namespace {

struct Listener {
    brusbo::SoundRequests& requests;
    brusbo::Player player;
};

void request_came(pa_mainloop_api*, pa_io_event*, int, pa_io_event_flags_t, void* user_data) {
    auto& listener = *static_cast<Listener*>(user_data);
    const std::string path = listener.requests.take();
    if (path.empty()) return;
    if (auto clip = brusbo::read_wave_file(path)) listener.player.play(std::move(*clip));
}

}  // namespace

extern "C" __attribute__((visibility("default"))) void brusbo_sound_loop(
    brusbo::SoundRequests& requests) {
    const std::unique_ptr<pa_mainloop, decltype(&pa_mainloop_free)> loop(pa_mainloop_new(),
                                                                         pa_mainloop_free);
    if (!loop) return;
    pa_mainloop_api* const api = pa_mainloop_get_api(loop.get());
    Listener listener{requests, brusbo::Player(api)};
    pa_io_event* const event =
        api->io_new(api, requests.event(), PA_IO_EVENT_INPUT, request_came, &listener);
    while (!requests.closed() && pa_mainloop_iterate(loop.get(), 1, nullptr) >= 0) {
    }
    api->io_free(event);
}
