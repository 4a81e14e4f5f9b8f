#include "tests/display/harness/desktop.h"

#include <signal.h>
#include <sys/prctl.h>

#include <fstream>
#include <regex>

namespace brusbo::display {

Child::Child(const std::vector<std::string>& words, const Environment& environment,
             const std::filesystem::path& folder, const std::filesystem::path& log)
    : log_(log) {
    QProcessEnvironment variables;
    for (const auto& [name, value] : environment)
        variables.insert(QString::fromStdString(name), QString::fromStdString(value));
    process_.setProcessEnvironment(variables);
    process_.setWorkingDirectory(QString::fromStdString(folder));
    process_.setProcessChannelMode(QProcess::MergedChannels);
    process_.setStandardOutputFile(QString::fromStdString(log));
    process_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    QStringList arguments;
    for (const std::string& word : words) arguments += QString::fromStdString(word);
    const QString program = arguments.takeFirst();
    start_ = std::chrono::steady_clock::now();
    process_.start(program, arguments);
}

Child::~Child() {
    terminate();
    constexpr int patience = 5000;  // milliseconds
    if (process_.waitForFinished(patience)) return;
    process_.kill();
    process_.waitForFinished();
}

bool Child::runs() {
    // The state is as of the last wait.
    process_.waitForFinished(0);
    return process_.state() != QProcess::NotRunning;
}

std::optional<int> Child::exit_code() {
    wait_for("the end of a process", [this] { return !runs(); });
    if (process_.exitStatus() != QProcess::NormalExit) return {};
    return process_.exitCode();
}

std::string Child::output() const {
    std::ifstream file(log_);
    return {std::istreambuf_iterator<char>(file), {}};
}

Desktop::Desktop(Manager manager, QSize screen) {
    const auto runtime = home() / "runtime";
    std::filesystem::create_directory(runtime);
    std::filesystem::permissions(runtime, std::filesystem::perms::owner_all);
    environment_ = {
        {"PATH", qEnvironmentVariable("PATH", "/usr/bin:/bin").toStdString()},
        {"HOME", home()},
        {"LC_ALL", "C.UTF-8"},
        {"XDG_RUNTIME_DIR", runtime},
        {"DBUS_SESSION_BUS_ADDRESS", "unix:path=" + (runtime / "no-bus").string()},
        {"PULSE_SERVER", "unix:" + (runtime / "no-sound").string()},
    };
    start_server(screen);
    if (manager == Manager::openbox) start_openbox();
}

Environment Desktop::environment(Environment more) const {
    more.insert(environment_.begin(), environment_.end());
    return more;
}

Child& Desktop::start(const std::vector<std::string>& words, const Environment& more) {
    return *programs_.emplace_back(
        std::make_unique<Child>(words, environment(more), home(), home() / (words[0] + ".log")));
}

void Desktop::start_server(QSize screen) {
    const std::string size =
        std::to_string(screen.width()) + 'x' + std::to_string(screen.height()) + "x24";
    // The server chooses a free number and writes it, alone in its line, when it is ready.
    Child& server =
        start({"Xvfb", "-displayfd", "1", "-screen", "0", size, "-nolisten", "tcp", "-noreset"});
    std::smatch number;
    std::string output;
    wait_for("the X server", [&] {
        if (!server.runs()) throw std::runtime_error("no X server: " + server.output());
        output = server.output();
        return std::regex_search(output, number, std::regex("(^|\n)(\\d+)\n"));
    });
    environment_["DISPLAY"] = ':' + number.str(2);
    person_ = std::make_unique<XClient>(environment_["DISPLAY"]);
    // Away from where windows appear.
    person_->point_at({screen.width() - 1, screen.height() - 1});
}

void Desktop::start_openbox() {
    start({"openbox", "--sm-disable"});
    // While it starts, openbox may lose windows that are shown; afterwards it takes this one.
    const WindowId probe = person_->create_window();
    wait_for("the window manager", [&] {
        xcb_map_window(person_->connection(), probe);
        return !person_->property(probe, "WM_STATE").empty();
    });
    xcb_destroy_window(person_->connection(), probe);
    wait_for("the window manager",
             [this] { return person_->property(person_->root(), "_NET_CLIENT_LIST").empty(); });
}

}  // namespace brusbo::display
