#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace brusbo::display {

using Environment = std::map<std::string, std::string>;

/// A process of ours. It dies with this object, and with the thread that started it.
class Child {
   public:
    struct Command {
        std::vector<std::string> words;  ///< the program is looked for in PATH
        Environment environment;         ///< all of it
        std::filesystem::path folder;    ///< to start in
        std::filesystem::path log;       ///< for standard output and error
        int descriptor = -1;             ///< of ours that it gets as number 3
    };

    explicit Child(const Command& command);
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    pid_t id() const { return id_; }
    std::chrono::steady_clock::time_point start() const { return start_; }
    bool runs();
    void send(int signal) const;

    /// Waits for the end. The exit code, or nothing where a signal was the end of it.
    std::optional<int> exit_code();

    /// What it has written so far.
    std::string output() const;

   private:
    const std::filesystem::path log_;
    pid_t id_ = 0;
    std::chrono::steady_clock::time_point start_;
    std::optional<int> status_;
};

}  // namespace brusbo::display
