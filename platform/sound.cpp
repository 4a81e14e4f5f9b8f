#include "platform/sound.h"

#include <dlfcn.h>
#include <pthread.h>
#include <signal.h>

#include <QFile>
#include <chrono>
#include <filesystem>
#include <system_error>

#include "platform/sound_backend/sound_requests.h"

namespace brusbo {

namespace {

constexpr std::chrono::milliseconds patience_at_end{200};

// The sound library and all that it needs are loaded here and not with the program, which would
// start later and be larger for it. They stay loaded.
SoundLoop load_sound_loop() {
    std::error_code no_program;
    const auto folder = std::filesystem::read_symlink("/proc/self/exe", no_program).parent_path();
    if (no_program) return nullptr;
    void* const module = dlopen((folder / sound_module_name).c_str(), RTLD_NOW | RTLD_LOCAL);
    return module ? reinterpret_cast<SoundLoop>(dlsym(module, sound_loop_name)) : nullptr;
}

}  // namespace

Sound::~Sound() {
    if (!thread_.joinable()) return;
    requests_->close();
    // A file on a dead network drive may hold the thread for ever.
    if (finished_.wait_for(patience_at_end) == std::future_status::ready)
        thread_.join();
    else
        thread_.detach();
}

void Sound::play(const QString& path) {
    if (!requests_) start_thread();
    if (thread_.joinable()) requests_->put(QFile::encodeName(path).toStdString());
}

void Sound::start_thread() {
    requests_ = std::make_shared<SoundRequests>();
    if (requests_->event() < 0) return;
    std::promise<void> finished;
    finished_ = finished.get_future();
    // The thread inherits the mask: signals are for the program's own thread.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    try {
        thread_ = std::thread([requests = requests_, finished = std::move(finished)]() mutable {
            pthread_setname_np(pthread_self(), "brusbo-sound");
            if (const SoundLoop loop = load_sound_loop()) loop(*requests);
            finished.set_value();
        });
    } catch (const std::system_error&) {
        // No more threads to be had: silence.
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

}  // namespace brusbo
