// The program on a Wayland compositor.
#include <gtest/gtest.h>

#include <regex>

#include "tests/display/harness/game.h"

namespace brusbo::display {
namespace {

/// weston; what it shows where, it tells itself.
class Compositor {
   public:
    Compositor(Desktop& desktop, const std::string& backend) : desktop_(desktop) {
        Child& weston = desktop.start(
            {"weston", "--backend=" + backend + "-backend.so", "--use-pixman", "--width=1000",
             "--height=800", "--socket=" + socket_, "--idle-time=0", "--no-config", "--debug"});
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
    std::optional<QRect> find(QSize size) const {
        const QMargins decorations(3, 30, 3, 3);  // Qt draws them itself
        for (const QRect& found : surfaces("xdg_toplevel")) {
            if (found.size() == size) return found;
            const QRect client = found.marginsRemoved(decorations);
            if (client.size() == size) return client;
        }
        return {};
    }
    /// Menus.
    std::vector<QRect> popups() const { return surfaces("xdg_popup"); }

   private:
    std::string scene() const {
        Child debug({"weston-debug", "scene-graph"}, desktop_.environment(environment()),
                    desktop_.home(), desktop_.home() / "scene");
        debug.exit_code();
        return debug.output();
    }

    std::vector<QRect> surfaces(const std::string& role) const {
        const std::string text = scene();
        const std::string point = R"(\((-?\d+), (-?\d+)\))";
        const std::regex view("role " + role + ".*\n(?:.*\n)??.*position: " + point + " -> " +
                              point);
        std::vector<QRect> found;
        for (std::sregex_iterator match(text.begin(), text.end(), view), end; match != end;
             ++match) {
            const auto number = [&](std::size_t group) { return std::stoi((*match)[group]); };
            found.emplace_back(QPoint(number(1), number(2)), QPoint(number(3) - 1, number(4) - 1));
        }
        return found;
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
    const Compositor compositor(desktop, "headless");
    RunningProgram program(desktop, compositor.environment());
    wait_for("the start window", [&] { return compositor.find(start_size); });
    EXPECT_EQ(program.output(), "");
    program.terminate();
    EXPECT_EQ(program.exit_code(), std::nullopt);
}

/// The compositor's screen is a window of an X server, whose pointer is the compositor's.
class WaylandPlay : public testing::Test {
   protected:
    const XClient& person() const { return desktop_.person(); }
    /// The compositor's arrow would be part of what is seen.
    void point_away() const { person().point_at({998, 798}); }
    void click(const QRect& window, const QRect& area) const {
        person().click(window.topLeft() + area.center());
    }
    QImage image(const QRect& window, const QRect& area) const {
        return person().image(area.translated(window.topLeft()));
    }
    bool shows(const QRect& window, QPoint corner, const QImage& expected) const {
        const QImage wanted = expected.convertToFormat(QImage::Format_RGB32);
        return image(window, {corner, wanted.size()}) == wanted;
    }

    /// Waits until the window is there and its face is seen. The compositor gives a window no input
    /// before it has drawn it, and tells of one before it has found its place.
    QRect window(QSize size) const {
        point_away();
        QPoint corner(0, 0);
        QImage face = brusbo::picture_image(picture("side-panel")).copy(0, 0, 180, 80);
        if (size == main_size) {
            corner = Picture1.topLeft() + QPoint(140, 0);
            face = brusbo::picture_image(picture("board")).copy(140, 0, 100, 378);
        } else if (size == farewell_size) {
            corner = {230, 8};
            face = QImage(50, 40, QImage::Format_RGB32);
            face.fill(QColor(240, 240, 240));
        }
        return *wait_for("a window's face", [&] {
            const auto found = compositor_.find(size);
            return found && shows(*found, corner, face) ? found : std::nullopt;
        });
    }
    void close(QSize size, const QRect& button) const {
        click(window(size), button);
        point_away();
        wait_for("a window to go", [&] { return !compositor_.find(size); });
    }

    /// Moves the mouse about there until the picture of the button is seen.
    void hover(const QRect& window, QPoint place, const QRect& button, Picture picture) const {
        // The compositor's arrow covers what lies to the lower right of its place.
        const QRect uncovered({0, 0}, button.size() - QSize(8, 8));
        wait_for("a picture under the mouse", [&] {
            // The first movement into a window only enters it.
            person().point_at(window.topLeft() + place - QPoint(1, 0));
            person().point_at(window.topLeft() + place);
            return shows(window, button.topLeft(), picture_image(picture).copy(uncovered));
        });
    }
    /// Expects the main window there when all input before has been handled: a button lights up.
    void expect_main_at(const QRect& place) const {
        hover(place, mnuOm.bottomRight(), mnuOm, picture("om-1"));
        hover(place, bare_board, mnuOm, picture("om-0"));
        EXPECT_EQ(compositor_.find(main_size), place);
    }
    /// Holds the mouse's button down and moves it by so much until the window has got there.
    void drag_until(const std::string& what, QPoint from, QPoint by,
                    const std::function<bool()>& is_there) const {
        person().point_at(from);
        person().press();
        // The compositor moves and resizes with the movements that come after it has been asked.
        wait_for(what, [&] {
            person().point_at(from + by + QPoint(1, 0));
            person().point_at(from + by);
            return is_there();
        });
        person().release();
    }

    Desktop desktop_{Manager::none};
    Compositor compositor_{desktop_, "x11"};
    RunningProgram program_{desktop_, compositor_.environment()};
};

TEST_F(WaylandPlay, FromTheStartToTheEnd) {
    close(start_size, Starta);
    QRect main = window(main_size);
    program_.wait_for_sounds("s1");
    const QImage told = image(main, labMeddelande);
    click(main, {40, 170, 35, 39});
    wait_for("the message", [&] { return image(main, labMeddelande) != told; });

    for (const QPoint by : {QPoint(-70, 50), QPoint(-7, 5)}) {
        const QRect moved = main.translated(by);
        drag_until("the window to follow", main.topLeft() + grip, by,
                   [&] { return compositor_.find(main_size) == moved; });
        main = moved;
        expect_main_at(main);
        // The next click is no longer the title bar's.
        click(main, mnuOm);
        close(about_size, Klar);
        expect_main_at(main);
    }
    for (int time = 0; time < 5; ++time) {
        click(main, {grip, QSize(1, 1)});
        person().point_at(main.topLeft() + bare_board);
        expect_main_at(main);
    }

    hover(main, mnuArkiv.bottomRight(), mnuArkiv, picture("arkiv-1"));
    click(main, mnuArkiv);
    const QPoint menu = main.topLeft() + QPoint(14, 28);
    wait_for("the menu at its place", [&] {
        const auto popups = compositor_.popups();
        return !popups.empty() && popups.front().topLeft() == menu;
    });
    person().click(menu + QPoint(60, 12));  // Nytt spel
    close(start_size, Starta);
    const QImage normal = brusbo::picture_image(picture("arkiv-0"));
    wait_for("the normal button", [&] { return shows(main, mnuArkiv.topLeft(), normal); });

    click(main, butAvsluta);
    const QRect farewell = window(farewell_size);
    drag_until("the farewell window to grow", farewell.bottomRight() - QPoint(1, 1), {40, 30},
               [&] { return compositor_.find(farewell_size + QSize(40, 30)).has_value(); });
    click(farewell, Stäng);
    EXPECT_EQ(program_.exit_code(), 0);
    EXPECT_EQ(program_.output(), "");
}

}  // namespace
}  // namespace brusbo::display
