// A sound server of the test's own, with an ear.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace brusbo {

using Samples = std::vector<std::int16_t>;

constexpr int sample_rate = 44100;

// PulseAudio without D-Bus and devices, playing into a pipe at 44100 Hz, 16 bits, mono; what comes
// out is recorded sample by sample. (The monitor of a null sink loses the first milliseconds of a
// sound: the sink writes them over silence that a recorder has had already.) Its socket is where
// clients with `runtime_folder` as their XDG_RUNTIME_DIR look.
class PulseServer {
   public:
    static bool is_installed();

    // Files go into `folder`.
    explicit PulseServer(std::filesystem::path folder, std::filesystem::path runtime_folder);
    ~PulseServer() { kill(); }
    PulseServer(const PulseServer&) = delete;
    PulseServer& operator=(const PulseServer&) = delete;

    // Return when the server is there and being recorded, or gone.
    void start();
    void kill();
    // As SIGSTOP and SIGCONT do.
    void freeze() const;
    void thaw() const;

    // All since the start.
    Samples recording() const;

   private:
    pid_t spawn(const std::vector<std::string>& command, const std::string& output) const;

    std::filesystem::path folder_;
    std::filesystem::path runtime_folder_;
    pid_t server_ = 0;
    pid_t recorder_ = 0;
};

}  // namespace brusbo
