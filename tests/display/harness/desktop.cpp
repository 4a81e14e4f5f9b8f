#include "tests/display/harness/desktop.h"

#include <fcntl.h>
#include <unistd.h>

namespace brusbo::display {

namespace fs = std::filesystem;

Desktop::Desktop(Manager manager, QSize screen) {
    const char* const path = getenv("PATH");
    const fs::path runtime = home_.path / "runtime";
    fs::create_directory(runtime);
    fs::permissions(runtime, fs::perms::owner_all);
    environment_ = {
        {"PATH", path != nullptr ? path : "/usr/bin:/bin"},
        {"HOME", home_.path},
        {"LC_ALL", "C.UTF-8"},
        {"XDG_RUNTIME_DIR", runtime},
        {"DBUS_SESSION_BUS_ADDRESS", "unix:path=" + (runtime / "no-bus").string()},
        {"PULSE_SERVER", "unix:" + (runtime / "no-sound").string()},
    };
    start_server(screen);
    if (manager == Manager::openbox) start_openbox();
}

Child& Desktop::start(const std::string& name, const std::vector<std::string>& words,
                      const Environment& more) {
    Environment environment = more;
    environment.insert(environment_.begin(), environment_.end());
    programs_.push_back(std::make_unique<Child>(
        Child::Command{words, environment, home_.path, home_.path / (name + ".log"), -1}));
    return *programs_.back();
}

void Desktop::start_server(QSize screen) {
    // The server chooses a free number and tells it.
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    const std::string size =
        std::to_string(screen.width()) + 'x' + std::to_string(screen.height()) + "x24";
    programs_.push_back(std::make_unique<Child>(Child::Command{
        {"Xvfb", "-displayfd", "3", "-screen", "0", size, "-nolisten", "tcp", "-noreset"},
        environment_,
        home_.path,
        home_.path / "xvfb.log",
        ends[1]}));
    close(ends[1]);
    std::string number;
    char letter = 0;
    while (read(ends[0], &letter, 1) == 1 && letter != '\n') number += letter;
    close(ends[0]);
    if (number.empty()) throw std::runtime_error("no X server: " + programs_.back()->output());
    environment_["DISPLAY"] = ':' + number;
    person_ = std::make_unique<XClient>(':' + number);
    // Away from where windows appear.
    person_->point_at({screen.width() - 1, screen.height() - 1});
}

void Desktop::start_openbox() {
    start("openbox", {"openbox", "--sm-disable"});
    // While it starts, openbox may lose windows that are shown; afterwards it takes this one.
    xcb_connection_t* const connection = person_->connection();
    const WindowId probe = xcb_generate_id(connection);
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, probe, person_->root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    wait_for("the window manager", [&] {
        xcb_map_window(connection, probe);
        return !person_->property(probe, "WM_STATE").empty();
    });
    xcb_destroy_window(connection, probe);
    wait_for("the window manager",
             [this] { return person_->property(person_->root(), "_NET_CLIENT_LIST").empty(); });
}

}  // namespace brusbo::display
