// Minimising, the about and farewell windows, and what close and maximise requests do.
#include <gtest/gtest.h>
#include <signal.h>

#include "tests/display/harness/game.h"

namespace brusbo::display {
namespace {

class Windows : public ::testing::Test {
   protected:
    const XClient& person() const { return game_.person(); }

    void expect_sound(const char* name) {
        heard_.emplace_back(name);
        game_.program().wait_for_sounds(heard_);
    }
    /// Points at a picture button and clicks it: two sounds.
    void press(const QRect& button) {
        game_.enter(main_, button);
        expect_sound("s2.wav");
        game_.click(main_, button);
        expect_sound("s1.wav");
    }
    void expect_normal_buttons() {
        game_.wait_for_picture(main_, mnuArkiv.topLeft(), Picture::arkiv_0);
        game_.wait_for_picture(main_, mnuOm.topLeft(), Picture::om_0);
        game_.wait_for_picture(main_, butMini.topLeft(), Picture::minimise_0);
        game_.wait_for_picture(main_, butAvsluta.topLeft(), Picture::close_0);
    }
    WindowId farewell() {
        press(butAvsluta);
        return game_.window(Shown::farewell);
    }

    Desktop desktop_;
    Game game_{desktop_};
    const WindowId main_ = game_.play();
    std::vector<std::string> heard_{"s1.wav"};
};

TEST_F(Windows, MinimisesAndComesBackAsItWas) {
    game_.throw_die(main_);
    expect_sound("s3.wav");
    const QRect place = person().place(main_);
    const QRect all = QRect({0, 34}, QSize(570, 382));
    const QImage before = game_.image(main_, all);
    EXPECT_FALSE(person().has_atom(main_, "_NET_WM_STATE", "_NET_WM_STATE_SKIP_TASKBAR"));

    for (int time = 0; time < 2; ++time) {
        press(butMini);
        wait_for("the window to go", [&] { return !person().is_viewable(main_); });
        constexpr std::uint32_t iconic = 3;
        EXPECT_EQ(person().property(main_, "WM_STATE").at(0), iconic);
        person().point_at({3, 3});

        constexpr std::uint32_t task_bar = 2;
        person().ask_manager(main_, "_NET_ACTIVE_WINDOW", {task_bar, XCB_CURRENT_TIME, 0});
        wait_for("the window to return", [&] { return game_.image(main_, all) == before; });
        EXPECT_EQ(person().place(main_), place);
        expect_normal_buttons();
    }
}

TEST_F(Windows, TheAboutWindowIsModalUntilKlar) {
    const QImage die = game_.image(main_, die_row);
    for (int time = 0; time < 2; ++time) {
        press(mnuOm);
        const WindowId about = game_.window(Shown::about);
        EXPECT_EQ(person().title(about), "Om...");
        game_.click(main_, {40, 170, 30, 30});
        person().wait_for_free_pointer();
        game_.click(about, Klar);
        game_.wait_until_gone(Shown::about);
        expect_sound("s1.wav");
        expect_normal_buttons();
        EXPECT_EQ(game_.image(main_, die_row), die);
    }
}

TEST_F(Windows, TheAboutWindowsCloseBoxMakesNoSound) {
    press(mnuOm);
    person().request_close(game_.window(Shown::about));
    game_.wait_until_gone(Shown::about);
    expect_normal_buttons();
    press(mnuOm);  // a click of the close box would be heard before these
    game_.window(Shown::about);
}

TEST_F(Windows, TheFarewellWindowLiesOverTheMiddleOfTheMainWindow) {
    const WindowId slut = farewell();
    EXPECT_TRUE(game_.shows(main_, butAvsluta.topLeft(), Picture::close_1)) << "stays lit";
    const QPoint off = person().place(slut).center() - person().place(main_).center();
    // The main window's frame counts as part of it.
    const auto frame = person().property(main_, "_NET_FRAME_EXTENTS");
    const int sideways = static_cast<int>(frame.at(1)) - static_cast<int>(frame.at(0));
    const int upwards = static_cast<int>(frame.at(3)) - static_cast<int>(frame.at(2));
    EXPECT_NEAR(off.x(), sideways / 2.0, 1);
    EXPECT_NEAR(off.y(), upwards / 2.0, 1);
}

TEST_F(Windows, TheFarewellWindowIsResizedByItsFrameAndItsElementsStay) {
    const WindowId slut = farewell();
    struct Row {
        const char* name;
        QPoint (*grip)(const QRect&);
        QMargins grows;  // with the pointer 40 to the right and 30 down
    };
    const Row rows[] = {
        {"right",
         [](const QRect& r) { return QPoint(r.right() - 1, r.center().y()); },
         {0, 0, 40, 0}},
        {"bottom",
         [](const QRect& r) { return QPoint(r.center().x(), r.bottom() - 1); },
         {0, 0, 0, 30}},
        {"bottom right",
         [](const QRect& r) { return r.bottomRight() - QPoint(1, 1); },
         {0, 0, 40, 30}},
        {"left",
         [](const QRect& r) { return QPoint(r.left() + 1, r.center().y()); },
         {-40, 0, 0, 0}},
        {"top", [](const QRect& r) { return QPoint(r.center().x(), r.top() + 1); }, {0, -30, 0, 0}},
        {"top left", [](const QRect& r) { return r.topLeft() + QPoint(1, 1); }, {-40, -30, 0, 0}},
    };
    person().point_at({3, 3});
    // Without the mark of the focus, which may come late.
    const auto elements = [&] {
        return std::pair(game_.image(slut, {10, 10, 220, 194}),
                         game_.image(slut, Stäng.adjusted(6, 6, -6, -6)));
    };
    const auto before = elements();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const QRect start = person().place(slut);
        const QRect wanted = start + row.grows;
        const QPoint from = row.grip(start);
        person().point_at(from);
        person().press();
        for (int step = 1; step <= 10; ++step) person().point_at(from + QPoint(4, 3) * step);
        person().release();
        wait_for("the new size", [&] { return person().place(slut) == wanted; });
        if (wanted.width() < 312 || wanted.height() < 212) continue;  // cut off at the edges
        wait_for("the elements at their places", [&] { return elements() == before; });
    }
}

TEST_F(Windows, TheFarewellWindowIgnoresCloseRequestsAndEndsByItsButton) {
    const WindowId slut = farewell();
    person().request_close(slut);
    wait_for("the focus", [&] { return person().focus() == slut; });
    person().type({key_Alt, key_F4});
    person().type({key_escape});
    // The main window stays usable beside it, and asks for it again.
    person().point_at(game_.at(main_, QPointF(300, 20)));
    game_.wait_for_picture(main_, butAvsluta.topLeft(), Picture::close_0);
    press(butAvsluta);
    EXPECT_EQ(game_.window(Shown::farewell), slut);
    game_.click(slut, Stäng);
    EXPECT_EQ(game_.program().process().exit_code(), 0);
    EXPECT_EQ(game_.program().process().output(), "");
}

TEST_F(Windows, AltF4OnTheMainWindowAsksForTheFarewellWindow) {
    wait_for("the focus", [&] { return person().focus() == main_; });
    person().type({key_Alt, key_F4});
    game_.window(Shown::farewell);
    expect_sound("s1.wav");
    EXPECT_NE(game_.find(Shown::main), 0U);
}

TEST_F(Windows, AltF4ClosesTheAboutWindowAlone) {
    press(mnuOm);
    const WindowId about = game_.window(Shown::about);
    wait_for("the focus", [&] { return person().focus() == about; });
    person().type({key_Alt, key_F4});
    game_.wait_until_gone(Shown::about);
    expect_normal_buttons();
    EXPECT_EQ(game_.find(Shown::farewell), 0U);
}

TEST_F(Windows, ClosingTheStartWindowOfANewGameEndsTheProgram) {
    wait_for("the focus", [&] { return person().focus() == main_; });
    person().type({key_F2});
    person().request_close(game_.window(Shown::start));
    EXPECT_EQ(game_.program().process().exit_code(), 0);
}

TEST_F(Windows, MaximisingChangesNoFixedSize) {
    const auto maximise = [&](WindowId window) {
        constexpr std::uint32_t add = 1;
        const QRect place = person().place(window);
        person().ask_manager(window, "_NET_WM_STATE",
                             {add, person().atom("_NET_WM_STATE_MAXIMIZED_VERT"),
                              person().atom("_NET_WM_STATE_MAXIMIZED_HORZ"), 2});
        // The manager handles one request after the other.
        constexpr std::uint32_t x_and_y_by_static_gravity = 10 | 3U << 8U;
        person().ask_manager(window, "_NET_MOVERESIZE_WINDOW", {x_and_y_by_static_gravity, 40, 50});
        wait_for("the manager", [&] { return person().place(window).topLeft() == QPoint(40, 50); });
        EXPECT_EQ(person().place(window).size(), place.size());
    };
    maximise(main_);
    game_.throw_die(main_);
    expect_sound("s3.wav");
    press(mnuOm);
    maximise(game_.window(Shown::about));
}

TEST_F(Windows, ATerminationSignalEndsTheProgramAtOnceDuringAThrowToo) {
    game_.click(main_, {40, 170, 30, 30});
    expect_sound("s3.wav");
    game_.program().process().send(SIGTERM);
    EXPECT_NE(game_.program().process().exit_code(), 0);
}

TEST(StartWindow, ItsCloseBoxEndsTheProgram) {
    const Desktop desktop;
    Game game(desktop);
    game.person().request_close(game.window(Shown::start));
    EXPECT_EQ(game.program().process().exit_code(), 0);
}

TEST(StartWindow, AltF4EndsTheProgram) {
    const Desktop desktop;
    Game game(desktop);
    const WindowId start = game.window(Shown::start);
    wait_for("the focus", [&] { return game.person().focus() == start; });
    game.person().type({key_Alt, key_F4});
    EXPECT_EQ(game.program().process().exit_code(), 0);
}

TEST(StartWindow, EscapeDoesNotCloseIt) {
    const Desktop desktop;
    Game game(desktop);
    const WindowId start = game.window(Shown::start);
    wait_for("the focus", [&] { return game.person().focus() == start; });
    game.person().type({key_escape});
    game.play();
}

}  // namespace
}  // namespace brusbo::display
