// Plays one clip at a time on the sound server.
#pragma once

#include <pulse/pulseaudio.h>

#include <chrono>
#include <cstddef>
#include <optional>

#include "platform/sound_backend/wave_file.h"

namespace brusbo {

// Runs on the main loop it is given and never blocks. The connection is made for the first clip
// and kept, for it costs nothing while nothing plays; when it breaks, the next clip makes it anew.
class Player {
   public:
    explicit Player(pa_mainloop_api* loop) : loop_(loop) {}
    ~Player() { disconnect(); }
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    // Cuts off the clip that plays. A clip for which the server has no answer within two seconds is
    // forgotten, so a server that wakes up again does not play what is long past.
    void play(Clip clip);

   private:
    // Brings the waiting clip as near to the ear as the server's last answer allows.
    void advance();
    void connect();
    void disconnect();
    void open_stream(Clip clip);
    void close_stream();
    void write(std::size_t wanted);

    void context_changed();
    void stream_changed();

    pa_mainloop_api* loop_;
    pa_context* context_ = nullptr;
    pa_stream* stream_ = nullptr;
    // What the stream plays, and how many bytes of it the server has.
    Clip clip_;
    std::size_t written_ = 0;
    std::optional<Clip> waiting_;
    std::chrono::steady_clock::time_point waits_since_;
};

}  // namespace brusbo
