#include "platform/sound_backend/player.h"

#include <algorithm>
#include <utility>

#include "platform/sound_backend/server_lookup.h"

namespace brusbo {

namespace {

constexpr std::chrono::seconds longest_wait{2};

Player* player(void* user_data) { return static_cast<Player*>(user_data); }

}  // namespace

void Player::play(Clip clip) {
    waiting_ = std::move(clip);
    waits_since_ = std::chrono::steady_clock::now();
    advance();
}

void Player::advance() {
    if (!waiting_) return;
    if (!context_) connect();
    if (!context_ || pa_context_get_state(context_) != PA_CONTEXT_READY) return;
    // The server has not named the stream yet, so it cannot be told to end it.
    if (stream_ && pa_stream_get_state(stream_) == PA_STREAM_CREATING) return;
    close_stream();
    Clip clip = std::move(*waiting_);
    waiting_.reset();
    if (std::chrono::steady_clock::now() - waits_since_ > longest_wait) return;
    open_stream(std::move(clip));
}

void Player::connect() {
    const auto lookup = look_up_server();
    if (lookup) context_ = pa_context_new(loop_, "Brusbo");
    if (!context_) {
        waiting_.reset();
        return;
    }
    if (lookup->cookie) pa_context_load_cookie_from_file(context_, lookup->cookie);
    pa_context_set_state_callback(
        context_, [](pa_context*, void* self) { player(self)->context_changed(); }, this);
    // A game starts no servers.
    if (pa_context_connect(context_, lookup->server, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0)
        disconnect();
}

void Player::disconnect() {
    waiting_.reset();
    close_stream();
    if (!context_) return;
    pa_context_set_state_callback(context_, nullptr, nullptr);
    pa_context_disconnect(context_);
    pa_context_unref(std::exchange(context_, nullptr));
}

void Player::context_changed() {
    const auto state = pa_context_get_state(context_);
    if (!PA_CONTEXT_IS_GOOD(state))
        disconnect();
    else
        advance();
}

void Player::open_stream(Clip clip) {
    clip_ = std::move(clip);
    written_ = 0;
    stream_ = pa_stream_new(context_, "Brusbo", &clip_.format, nullptr);
    if (!stream_) return;
    pa_stream_set_state_callback(
        stream_, [](pa_stream*, void* self) { player(self)->stream_changed(); }, this);
    pa_stream_set_write_callback(
        stream_, [](pa_stream*, std::size_t wanted, void* self) { player(self)->write(wanted); },
        this);
    if (pa_stream_connect_playback(stream_, nullptr, nullptr, PA_STREAM_NOFLAGS, nullptr, nullptr) <
        0)
        close_stream();
}

void Player::close_stream() {
    if (!stream_) return;
    pa_stream_set_state_callback(stream_, nullptr, nullptr);
    pa_stream_set_write_callback(stream_, nullptr, nullptr);
    pa_stream_disconnect(stream_);
    pa_stream_unref(std::exchange(stream_, nullptr));
    clip_.samples = {};
}

void Player::stream_changed() {
    const auto state = pa_stream_get_state(stream_);
    if (!PA_STREAM_IS_GOOD(state)) close_stream();
    advance();
}

void Player::write(std::size_t wanted) {
    if (waiting_) return;
    const auto& samples = clip_.samples;
    const std::size_t count = std::min(wanted, samples.size() - written_);
    if (count == 0 || pa_stream_write(stream_, samples.data() + written_, count, nullptr, 0,
                                      PA_SEEK_RELATIVE) < 0)
        return;
    written_ += count;
    if (written_ < samples.size()) return;
    // A drained stream is gone from the server, which may then put its device to rest.
    const auto drained = [](pa_stream* stream, int, void* self) {
        if (stream == player(self)->stream_) player(self)->close_stream();
    };
    pa_operation* const draining = pa_stream_drain(stream_, drained, this);
    if (draining) pa_operation_unref(draining);
}

}  // namespace brusbo
