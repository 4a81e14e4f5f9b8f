#include "tests/display/harness/running_program.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <cstring>

namespace brusbo::display {

namespace fs = std::filesystem;

RunningProgram::RunningProgram(const Desktop& desktop, const Environment& more,
                               const fs::path& program) {
    const fs::path folder = desktop.home() / "game";
    fs::remove_all(folder);
    fs::copy(BRUSBO_DATA, folder, fs::copy_options::recursive);
    watch_ = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (inotify_add_watch(watch_, folder.c_str(), IN_OPEN) < 0)
        throw std::runtime_error("cannot see what is opened in " + folder.string());
    Environment environment = more;
    environment.insert(desktop.environment().begin(), desktop.environment().end());
    process_ = std::make_unique<Child>(
        Child::Command{{program.empty() ? BRUSBO_PROGRAM : program.string()},
                       environment,
                       folder,
                       desktop.home() / "program.log",
                       -1});
}

RunningProgram::~RunningProgram() { close(watch_); }

const std::vector<std::string>& RunningProgram::sounds() {
    alignas(inotify_event) char events[4096];
    for (ssize_t length = 0; (length = read(watch_, events, sizeof events)) > 0;) {
        for (const char* next = events; next < events + length;) {
            inotify_event event{};
            std::memcpy(&event, next, sizeof event);
            const std::string name = next + sizeof event;
            next += sizeof event + event.len;
            if (name.ends_with(".wav")) sounds_.push_back(name);
        }
    }
    return sounds_;
}

void RunningProgram::wait_for_sounds(const std::vector<std::string>& expected) {
    const auto in_words = [](const std::vector<std::string>& names) {
        std::string words;
        for (const std::string& name : names) words += ' ' + name;
        return words;
    };
    try {
        wait_for("sounds", [&] { return sounds().size() >= expected.size(); });
    } catch (const std::runtime_error&) {
    }
    if (sounds_ != expected)
        throw std::runtime_error("expected to hear" + in_words(expected) + " but heard" +
                                 in_words(sounds_));
}

}  // namespace brusbo::display
