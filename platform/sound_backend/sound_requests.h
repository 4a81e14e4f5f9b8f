// How the program tells the sound thread what to play.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>

namespace brusbo {

/// What both change and read, only ever for a moment and under the lock.
struct SoundRequests {
    std::mutex lock;
    std::condition_variable changed;
    /// The newest request, in the encoding of the file system, and since when it waits. Empty when
    /// there is none.
    std::string path;
    std::chrono::steady_clock::time_point made;
    /// The thread is to end; it has ended.
    bool closed = false;
    bool finished = false;
};

/// The one function of the module: plays what is requested until the requests are closed.
using SoundLoop = void (*)(SoundRequests&);
constexpr const char* sound_loop_name = "brusbo_sound_loop";
constexpr const char* sound_module_name = "libbrusbo_sound.so";

}  // namespace brusbo
