// The program on a Wayland compositor.
#include <gtest/gtest.h>
#include <signal.h>

#include <regex>
#include <sstream>

#include "tests/display/harness/game.h"

namespace brusbo::display {
namespace {

/// weston; what it shows where, it tells itself.
class Compositor {
   public:
    enum class Backend { x11, headless };

    Compositor(Desktop& desktop, Backend backend) : desktop_(desktop) {
        const char* const module =
            backend == Backend::x11 ? "x11-backend.so" : "headless-backend.so";
        Child& weston =
            desktop.start("weston", {"weston", std::string("--backend=") + module, "--use-pixman",
                                     "--width=1000", "--height=800", "--socket=" + socket_,
                                     "--idle-time=0", "--no-config", "--debug"});
        wait_for("the compositor", [&] {
            if (!weston.runs()) throw std::runtime_error(weston.output());
            // Its panel comes last.
            return scene().find("panel for output") != std::string::npos;
        });
    }

    Environment environment() const {
        return {{"WAYLAND_DISPLAY", socket_}, {"XDG_SESSION_TYPE", "wayland"}, {"DISPLAY", ""}};
    }

    /// The client area of the window of that size.
    std::optional<QRect> find(QSize size) const { return find("xdg_toplevel", size); }

    std::optional<QRect> find_popup() const { return find("xdg_popup", {}); }

   private:
    std::string scene() const {
        Environment environment = desktop_.environment();
        environment["WAYLAND_DISPLAY"] = socket_;
        Child debug({{"weston-debug", "scene-graph"},
                     environment,
                     desktop_.home(),
                     desktop_.home() / "scene",
                     -1});
        debug.exit_code();
        return debug.output();
    }

    /// The first surface of that role, and of that size unless it is invalid, without its
    /// decorations.
    std::optional<QRect> find(const std::string& role, QSize size) const {
        const QMargins decorations(3, 30, 3, 3);  // Qt draws them itself
        const std::regex corners(R"(position: \((-?\d+), (-?\d+)\) -> \((-?\d+), (-?\d+)\))");
        std::istringstream lines(scene());
        bool inside = false;
        for (std::string line; std::getline(lines, line);) {
            if (line.find("View ") != std::string::npos)
                inside = line.find("role " + role) != std::string::npos;
            std::smatch match;
            if (!inside || !std::regex_search(line, match, corners)) continue;
            const QPoint first(std::stoi(match[1]), std::stoi(match[2]));
            const QPoint last(std::stoi(match[3]) - 1, std::stoi(match[4]) - 1);
            const QRect found(first, last);
            if (!size.isValid() || found.size() == size) return found;
            if (found.marginsRemoved(decorations).size() == size)
                return found.marginsRemoved(decorations);
        }
        return {};
    }

    Desktop& desktop_;
    const std::string socket_ = "brusbo-test";
};

constexpr QSize start_size(188, 305);
constexpr QSize main_size(570, 416);
constexpr QSize about_size(188, 378);
constexpr QSize farewell_size(312, 212);

TEST(Wayland, AHeadlessCompositorShowsTheStartWindow) {
    Desktop desktop(Manager::none);
    const Compositor compositor(desktop, Compositor::Backend::headless);
    RunningProgram program(desktop, compositor.environment());
    wait_for("the start window", [&] { return compositor.find(start_size); });
    EXPECT_EQ(program.process().output(), "");
    program.process().send(SIGTERM);
    EXPECT_EQ(program.process().exit_code(), std::nullopt);
}

/// The compositor's screen is a window of an X server, whose pointer is the compositor's.
class WaylandPlay : public ::testing::Test {
   protected:
    const XClient& person() const { return desktop_.person(); }

    void click(QPoint place) const { person().click(place); }

    /// Waits until the window is there and its face is seen. The compositor gives a window no input
    /// before it has drawn it, and tells of one before it has found its place.
    QRect window(QSize size) const {
        // The compositor's arrow would be part of what is seen.
        person().point_at({998, 798});
        // The largest corner without elements, of the picture that is the window's ground.
        const QImage panel = brusbo::image(Picture::side_panel).copy(0, 0, 180, 80);
        const QImage board = brusbo::image(Picture::board).copy(140, 0, 100, 378);
        QImage plain(50, 40, QImage::Format_RGB32);
        plain.fill(QColor(240, 240, 240));
        const auto face_is_seen = [&](const QRect& window) {
            if (size == main_size)
                return shows(window, Picture1.topLeft() + QPoint(140, 0), board);
            if (size == farewell_size) return shows(window, {230, 8}, plain);
            return shows(window, {0, 0}, panel);
        };
        return *wait_for("a window's face", [&] {
            const auto found = compositor_.find(size);
            return found && face_is_seen(*found) ? found : std::nullopt;
        });
    }

    /// Presses Starta. The main window.
    QRect play() {
        click(window(start_size).topLeft() + Starta.center());
        const QRect main = window(main_size);
        program_.wait_for_sounds({"s1.wav"});
        return main;
    }

    bool shows(const QRect& window, QPoint corner, const QImage& expected) const {
        const QImage wanted = expected.convertToFormat(QImage::Format_RGB32);
        return image(window, {corner, wanted.size()}) == wanted;
    }

    /// Moves the mouse about there until the picture of the button is seen.
    void hover(const QRect& window, QPoint place, const QRect& button, Picture picture) const {
        // The compositor's arrow covers what lies to the lower right of its place.
        const QSize uncovered = button.size() - QSize(8, 8);
        const QImage wanted =
            brusbo::image(picture).copy({{0, 0}, uncovered}).convertToFormat(QImage::Format_RGB32);
        wait_for("a picture under the mouse", [&] {
            // The first movement into a window only enters it.
            person().point_at(window.topLeft() + place - QPoint(1, 0));
            person().point_at(window.topLeft() + place);
            return image(window, {button.topLeft(), uncovered}) == wanted;
        });
    }
    /// Lights a button up and leaves it, so all input before has been handled.
    void let_it_catch_up(const QRect& window) const {
        hover(window, mnuOm.bottomRight(), mnuOm, Picture::om_1);
        hover(window, {300, 300}, mnuOm, Picture::om_0);
    }

    QImage image(const QRect& window, const QRect& area) const {
        return person().image(area.translated(window.topLeft()));
    }

    Desktop desktop_{Manager::none};
    Compositor compositor_{desktop_, Compositor::Backend::x11};
    RunningProgram program_{desktop_, compositor_.environment()};
};

TEST_F(WaylandPlay, AThrowIsToldAndTheProgramEndsByTheFarewellWindow) {
    const QRect main = play();
    const QImage told = image(main, labMeddelande);
    click(main.topLeft() + QPoint(57, 189));
    wait_for("the message", [&] { return image(main, labMeddelande) != told; });

    click(main.topLeft() + mnuOm.center());
    click(window(about_size).topLeft() + Klar.center());
    wait_for("the about window to go", [&] { return !compositor_.find(about_size); });

    click(main.topLeft() + butAvsluta.center());
    const QRect small = window(farewell_size);
    const QPoint corner = small.bottomRight() - QPoint(1, 1);
    const QPoint grown(40, 30);
    person().point_at(corner);
    person().press();
    wait_for("the farewell window to grow", [&] {
        person().point_at(corner + grown + QPoint(1, 0));
        person().point_at(corner + grown);
        return compositor_.find(small.size() + QSize(grown.x(), grown.y())).has_value();
    });
    person().release();
    click(small.topLeft() + Stäng.center());
    EXPECT_EQ(program_.process().exit_code(), 0);
    EXPECT_EQ(program_.process().output(), "");
}

TEST_F(WaylandPlay, TheTitleBarMovesTheWindowByThePointersDistance) {
    QRect main = play();
    for (const int steps : {10, 1}) {
        const QPoint moved(-steps * 7, steps * 5);
        const QPoint from = main.topLeft() + grip;
        person().point_at(from);
        person().press();
        for (int step = 1; step <= steps; ++step) person().point_at(from + moved * step / steps);
        // The compositor moves the window with the movements that come after it has been asked.
        wait_for("the window to follow", [&] {
            person().point_at(from + moved + QPoint(1, 0));
            person().point_at(from + moved);
            return compositor_.find(main_size) == main.translated(moved);
        });
        person().release();
        main.translate(moved);
        let_it_catch_up(main);
        EXPECT_EQ(compositor_.find(main_size), main);
        // The next click is no longer the title bar's.
        click(main.topLeft() + mnuOm.center());
        click(window(about_size).topLeft() + Klar.center());
        wait_for("the about window to go", [&] { return !compositor_.find(about_size); });
    }
}

TEST_F(WaylandPlay, AFastClickOnTheTitleBarDoesNotStick) {
    const QRect main = play();
    for (int time = 0; time < 5; ++time) {
        click(main.topLeft() + grip);
        person().point_at(main.topLeft() + QPoint(380, 250));
        let_it_catch_up(main);
        EXPECT_EQ(compositor_.find(main_size), main);
    }
}

TEST_F(WaylandPlay, TheMenuOpensAtTheLowerLeftCornerOfItsButton) {
    const QRect main = play();
    hover(main, mnuArkiv.bottomRight(), mnuArkiv, Picture::arkiv_1);
    click(main.topLeft() + mnuArkiv.center());
    const QPoint corner = main.topLeft() + QPoint(14, 28);
    const QRect menu = *wait_for("the menu at its place", [&] {
        const auto found = compositor_.find_popup();
        return found && found->topLeft() == corner ? found : std::nullopt;
    });
    click(corner + QPoint(60, menu.height() / 6));
    click(window(start_size).topLeft() + Starta.center());
    person().point_at({998, 798});
    wait_for("the start window to go", [&] { return !compositor_.find(start_size); });
    const QImage normal = brusbo::image(Picture::arkiv_0);
    wait_for("the normal button", [&] { return shows(main, mnuArkiv.topLeft(), normal); });
}

}  // namespace
}  // namespace brusbo::display
