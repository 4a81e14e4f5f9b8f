#pragma once

#include <QProcess>
#include <QTemporaryDir>
#include <filesystem>
#include <map>
#include <optional>

#include "tests/display/harness/x_client.h"

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

enum class Manager { openbox, none };

/// An X server of our own, by default with a window manager, and a home folder that nothing else
/// uses. All is gone with the object.
class Desktop {
   public:
    explicit Desktop(Manager manager = Manager::openbox, QSize screen = {1280, 1024});

    const XClient& person() const { return *person_; }
    std::filesystem::path home() const { return folder_.path().toStdString(); }
    /// For programs that are to show themselves here; there is no session bus and no sound server.
    /// `more` goes before that.
    Environment environment(Environment more = {}) const;
    /// A further program of the desktop, such as a compositor.
    Child& start(const std::vector<std::string>& words, const Environment& more = {});

   private:
    void start_server(QSize screen);
    void start_openbox();

    const QTemporaryDir folder_;
    Environment environment_;
    std::vector<std::unique_ptr<Child>> programs_;  // the server first
    std::unique_ptr<XClient> person_;
};

}  // namespace brusbo::display
