#pragma once

#include <QProcess>
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
    /// `words` are the program, looked for in PATH, and its arguments; `environment` is all of its
    /// environment. What it writes goes to the log.
    Child(const std::vector<std::string>& words, const Environment& environment,
          const std::filesystem::path& folder, const std::filesystem::path& log);
    virtual ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    pid_t id() const { return static_cast<pid_t>(process_.processId()); }
    std::chrono::steady_clock::time_point start() const { return start_; }
    bool runs();
    void terminate() { process_.terminate(); }
    /// Waits for the end. The exit code, or nothing where a signal was the end of it.
    std::optional<int> exit_code();

    /// What it has written so far.
    std::string output() const;

   private:
    const std::filesystem::path log_;
    QProcess process_;
    std::chrono::steady_clock::time_point start_;
};

}  // namespace brusbo::display
