#include "tests/sound/pulse_server.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <utility>

#include "tests/sound/waiting.h"

namespace fs = std::filesystem;

namespace brusbo {

namespace {

std::string contents(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

void end(pid_t& process) {
    if (process == 0) return;
    ::kill(process, SIGKILL);
    waitpid(std::exchange(process, 0), nullptr, 0);
}

}  // namespace

bool PulseServer::is_installed() { return std::system("command -v pulseaudio > /dev/null") == 0; }

PulseServer::PulseServer(fs::path folder, fs::path runtime_folder)
    : folder_(std::move(folder)), runtime_folder_(std::move(runtime_folder)) {
    fs::create_directories(folder_);
}

pid_t PulseServer::spawn(const std::vector<std::string>& command, const std::string& output) const {
    std::vector<char*> arguments;
    for (const auto& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const std::string out = folder_ / output;
    const std::string err = folder_ / (output + ".log");
    const pid_t process = fork();
    if (process != 0) return process;
    const auto redirect = [](const std::string& path, int descriptor) {
        dup2(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), descriptor);
    };
    redirect(out, STDOUT_FILENO);
    redirect(err, STDERR_FILENO);
    // A test that is killed leaves no server behind.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    setenv("HOME", folder_.c_str(), 1);
    setenv("XDG_RUNTIME_DIR", runtime_folder_.c_str(), 1);
    execvp(arguments[0], arguments.data());
    _exit(127);
}

void PulseServer::start() {
    const fs::path ear = folder_ / "ear";
    fs::remove(ear);
    // The pipe comes last: once it is there, so is all else.
    server_ = spawn(
        {"pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no", "--realtime=no",
         "--high-priority=no", "--exit-idle-time=-1", "-L", "module-native-protocol-unix", "-L",
         "module-pipe-sink use_system_clock_for_timing=yes format=s16le rate=44100 "
         "channels=1 file=" +
             ear.string()},
        "server");
    wait_until(
        [&] {
            const bool has_ended = waitpid(server_, nullptr, WNOHANG) != 0;
            if (has_ended) throw std::runtime_error(contents(folder_ / "server.log"));
            return fs::exists(ear);
        },
        "the server");
    recorder_ = spawn({"cat", ear}, "recording");
    wait_until([this] { return !recording().empty(); }, "the first sample");
}

void PulseServer::kill() {
    end(server_);
    end(recorder_);
}

void PulseServer::freeze() const {
    ::kill(server_, SIGSTOP);
    waitpid(server_, nullptr, WUNTRACED);
}

void PulseServer::thaw() const { ::kill(server_, SIGCONT); }

Samples PulseServer::recording() const {
    const std::string bytes = contents(folder_ / "recording");
    Samples samples(bytes.size() / sizeof(Samples::value_type));
    if (!samples.empty()) {
        std::memcpy(samples.data(), bytes.data(), samples.size() * sizeof(samples[0]));
    }
    return samples;
}

}  // namespace brusbo
