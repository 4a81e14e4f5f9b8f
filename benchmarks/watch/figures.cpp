#include "benchmarks/watch/figures.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace brusbo::display {

double quantile(std::vector<double> values, double part) {
    if (values.empty()) throw std::runtime_error("nothing was measured");
    std::sort(values.begin(), values.end());
    const double place = part * static_cast<double>(values.size() - 1);
    const auto below = static_cast<std::size_t>(std::floor(place));
    const auto above = static_cast<std::size_t>(std::ceil(place));
    return std::lerp(values[below], values[above], place - std::floor(place));
}

void Report::print(const std::string& what, double figure, const char* unit) const {
    std::printf("%-52s %10.3f %s\n", what.c_str(), figure, unit);
    std::fflush(stdout);
}

void Report::print(const std::string& what, double figure, const char* unit, double most) {
    const bool good = figure <= most;
    if (!good) ++missed_;
    std::printf("%-52s %10.3f %-3s at most %g: %s\n", what.c_str(), figure, unit, most,
                good ? "good" : "MISSED");
    std::fflush(stdout);
}

double proportional_memory(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/smaps_rollup");
    for (std::string word; file >> word;) {
        double amount = 0;
        if (word == "Pss:" && file >> amount) return amount;
    }
    throw std::runtime_error("no figure for the memory of a process");
}

Environment start_sound_server(Desktop& desktop) {
    const auto socket = desktop.home() / "runtime" / "pulse" / "native";
    desktop.start({"pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no", "--realtime=no",
                   "--high-priority=no", "--exit-idle-time=-1", "-L", "module-native-protocol-unix",
                   "-L", "module-null-sink"},
                  {{"PULSE_SERVER", ""}});
    wait_for("the sound server", [&] { return std::filesystem::exists(socket); });
    return {{"PULSE_SERVER", "unix:" + socket.string()}};
}

}  // namespace brusbo::display
