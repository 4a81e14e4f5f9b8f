// How the program tells the sound thread what to play.
#pragma once

#include <sys/eventfd.h>
#include <unistd.h>

#include <mutex>
#include <string>
#include <utility>

namespace brusbo {

// Holds the newest request only. No call blocks longer than the other side takes to move a string.
class SoundRequests {
   public:
    SoundRequests() : event_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}
    ~SoundRequests() {
        if (event_ >= 0) ::close(event_);
    }
    SoundRequests(const SoundRequests&) = delete;
    SoundRequests& operator=(const SoundRequests&) = delete;

    // For the program. `path` is in the encoding of the file system and replaces a waiting one.
    void put(std::string path) { change(std::move(path), false); }
    void close() { change({}, true); }

    // For the sound thread: a descriptor that is readable while something waits (negative when the
    // system had none), the newest path (empty when there is none), and whether to end.
    int event() const { return event_; }
    std::string take() {
        const std::lock_guard lock(mutex_);
        eventfd_t count = 0;
        eventfd_read(event_, &count);
        return std::exchange(path_, {});
    }
    bool closed() {
        const std::lock_guard lock(mutex_);
        return closed_;
    }

   private:
    void change(std::string path, bool closed) {
        const std::lock_guard lock(mutex_);
        path_ = std::move(path);
        closed_ = closed;
        eventfd_write(event_, 1);
    }

    const int event_;
    std::mutex mutex_;
    std::string path_;
    bool closed_ = false;
};

// The one function of the module: plays what is requested until the requests are closed.
using SoundLoop = void (*)(SoundRequests&);
constexpr const char* sound_loop_name = "brusbo_sound_loop";
constexpr const char* sound_module_name = "libbrusbo_sound.so";

}  // namespace brusbo
