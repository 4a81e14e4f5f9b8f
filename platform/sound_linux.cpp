#include <dlfcn.h>

#include <system_error>
#include <thread>

#include "platform/sound.h"
#include "platform/sound_backend/sound_requests.h"

namespace brusbo {

namespace {

constexpr std::chrono::milliseconds patience_at_end{150};

// The sound libraries and all that they need are loaded here and not with the program, which would
// start later and be larger for it. They stay loaded.
SoundLoop load_sound_loop() {
    std::error_code no_program;
    const auto folder = std::filesystem::read_symlink("/proc/self/exe", no_program).parent_path();
    if (no_program) return nullptr;
    void* const module = dlopen((folder / sound_module_name).c_str(), RTLD_NOW | RTLD_LOCAL);
    return module ? reinterpret_cast<SoundLoop>(dlsym(module, sound_loop_name)) : nullptr;
}

// Not joined: a stopped server or a file on a dead network drive may hold the thread for ever.
void start_thread(const std::shared_ptr<SoundRequests>& requests) try {
    std::thread([requests] {
        if (const SoundLoop loop = load_sound_loop()) loop(*requests);
        const std::lock_guard lock(requests->lock);
        requests->finished = true;
        requests->changed.notify_all();
    }).detach();
} catch (const std::system_error&) {
    // No more threads to be had: silence.
    requests->finished = true;
}

}  // namespace

Sound::~Sound() {
    if (!requests_) return;
    std::unique_lock lock(requests_->lock);
    requests_->closed = true;
    requests_->changed.notify_all();
    requests_->changed.wait_for(lock, patience_at_end, [this] { return requests_->finished; });
}

void Sound::play(const std::filesystem::path& file) {
    if (!requests_) start_thread(requests_ = std::make_shared<SoundRequests>());
    const std::lock_guard lock(requests_->lock);
    requests_->path = file.native();
    requests_->made = std::chrono::steady_clock::now();
    requests_->changed.notify_all();
}

}  // namespace brusbo
