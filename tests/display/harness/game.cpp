#include "tests/display/harness/game.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <cmath>

namespace brusbo::display {

namespace fs = std::filesystem;

namespace {

/// What tells a window from others: its size, and a place with a colour that nothing below it has
/// there. An unpainted window looks like what is below it.
struct Face {
    QSize size;
    QPoint spot;
    QRgb colour;
};

/// In the order of Shown.
constexpr Face faces[] = {
    {{188, 305}, Starta.topLeft() + QPoint(8, 5), qRgb(255, 224, 192)},
    {{570, 416}, Picture1.topLeft() + QPoint(2, 2), qRgb(200, 150, 100)},
    {{188, 378}, Klar.topLeft() + QPoint(8, 5), qRgb(255, 224, 192)},
    {{312, 212}, {231, 9}, qRgb(240, 240, 240)},
    {{309, 294}, {200, 30}, qRgb(0, 0, 0)},
};

const Face& face_of(Shown which) { return faces[static_cast<std::size_t>(which)]; }

fs::path fresh_copy(const char* data, const fs::path& folder) {
    fs::remove_all(folder);
    fs::copy(data, folder, fs::copy_options::recursive);
    return folder;
}

}  // namespace

RunningProgram::RunningProgram(const Desktop& desktop, const Environment& more,
                               const std::string& program)
    : Child({program.empty() ? BRUSBO_PROGRAM : program}, desktop.environment(more),
            fresh_copy(BRUSBO_DATA, desktop.home() / "game"), desktop.home() / "program.log"),
      watch_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    // A new object counts its watches from 1, so they have the numbers of their sounds. Without the
    // closing in between, two plays in a row would be reported as one.
    for (const int sound : {1, 2, 3}) {
        const fs::path file = desktop.home() / "game" / ('s' + std::to_string(sound) + ".wav");
        if (inotify_add_watch(watch_, file.c_str(), IN_OPEN | IN_CLOSE) != sound)
            throw std::runtime_error("cannot see when it is opened: " + file.string());
    }
}

RunningProgram::~RunningProgram() { close(watch_); }

void RunningProgram::wait_for_sounds(const std::string& expected) {
    std::string heard;
    wait_for("the sounds " + expected, [&] {
        for (inotify_event event{}; read(watch_, &event, sizeof event) == sizeof event;)
            if ((event.mask & IN_OPEN) != 0)
                heard += (heard.empty() ? "s" : " s") + std::to_string(event.wd);
        return heard.size() >= expected.size();
    });
    if (heard != expected)
        throw std::runtime_error("expected to hear " + expected + " but heard " + heard);
}

Game::Game(const Desktop& desktop, double scale, const Environment& more,
           const std::string& program)
    : desktop_(desktop), scale_(scale), program_(desktop, more, program) {}

QRect Game::scaled(const QRect& area) const {
    const auto pixels = [this](int length) {
        return static_cast<int>(std::lround(length * scale_));
    };
    return {pixels(area.x()), pixels(area.y()), pixels(area.width()), pixels(area.height())};
}

WindowId Game::find(Shown which) const {
    const QSize size = scaled({{}, face_of(which).size}).size();
    for (const WindowId window : person().windows_of("brusbo"))
        if (person().place(window).size() == size) return window;
    return 0;
}

WindowId Game::window(Shown which) {
    const Face& face = face_of(which);
    return wait_for("window " + std::to_string(static_cast<int>(which)), [&]() -> WindowId {
        if (!program_.runs())
            throw std::runtime_error("the program has ended: " + program_.output());
        const WindowId window = find(which);
        if (window == 0) return 0;
        const QImage spot = person().image({at(window, face.spot), QSize(1, 1)});
        return !spot.isNull() && spot.pixel(0, 0) == face.colour ? window : 0;
    });
}

void Game::wait_until_gone(Shown which) const {
    wait_for(
        "a window to go", [&] { return find(which) == 0; });
}

WindowId Game::menu() const {
    // It takes no clicks beside it before it is painted: light grey, on a window without that.
    const auto is_painted = [&](WindowId window) {
        const QPoint blank = person().place(window).topRight() + QPoint(-5, 5);
        const QImage spot = person().image({blank, QSize(1, 1)});
        if (spot.isNull()) return false;
        const QRgb colour = spot.pixel(0, 0);
        return qBlue(colour) > 200 && qRed(colour) == qBlue(colour);
    };
    return wait_for("the menu", [&]() -> WindowId {
        for (const WindowId window : person().windows_of("brusbo"))
            if (person().property(window, "WM_STATE").empty() && is_painted(window)) return window;
        return 0;
    });
}

WindowId Game::play() {
    click(window(Shown::start), Starta);
    const WindowId main = window(Shown::main);
    wait_until_gone(Shown::start);
    if (scale_ == 1) wait_for_picture(main, butAvsluta.topLeft(), picture("close-0"));
    program_.wait_for_sounds("s1");
    return main;
}

void Game::throw_die(WindowId main) const {
    const QImage before = image(main, labMeddelande);
    const auto die = wait_for("the die", [&]() -> std::optional<QPoint> {
        // White pips' ground, wherever the last throw left the die.
        const QImage seen = image(main, die_row);
        for (int x = seen.width() - 1; x >= 0; --x)
            if (qGray(seen.pixel(x, seen.height() / 4)) > 235)
                return scaled(die_row).topLeft() + QPoint(x, seen.height() / 4);
        return {};
    });
    person().click(person().place(main).topLeft() + *die);
    wait_for_change("the message after a throw", main, labMeddelande, before);
}

QPoint Game::at(WindowId window, const QRect& area) const {
    return person().place(window).topLeft() + scaled(area).center();
}

void Game::enter(WindowId window, const QRect& area) {
    constexpr int from_the_middle[] = {-2, -1, 1, 2};  // clicks are in the middle itself
    person().point_at(at(window, area) + QPoint(from_the_middle[++entered_ % 4], 0));
}

QImage Game::image(WindowId window, const QRect& area) const {
    return person().image(scaled(area).translated(person().place(window).topLeft()));
}

bool Game::shows(WindowId window, QPoint corner, Picture picture) const {
    const QImage wanted = picture_image(picture).convertToFormat(QImage::Format_RGB32);
    return image(window, {corner, wanted.size()}) == wanted;
}

void Game::wait_for_picture(WindowId window, QPoint corner, Picture picture) const {
    wait_for(
        std::string("picture ") + picture_list[picture.index].name,
        [&] { return shows(window, corner, picture); });
}

void Game::wait_for_change(const std::string& what, WindowId window, const QRect& area,
                           const QImage& before) const {
    wait_for(
        what,
        [&] {
            const QImage now = image(window, area);
            return !now.isNull() && now != before;
        });
}

}  // namespace brusbo::display
