// The start of the program, and desktops without a window manager, with one that keeps the focus,
// and at the scales of larger displays.
#include <gtest/gtest.h>

#include "tests/display/harness/game.h"

namespace brusbo::display {
namespace {

TEST(StartWindow, IsClosedByRequestsButNotByEscape) {
    const Desktop desktop;
    const XClient& person = desktop.person();
    for (const bool by_key : {true, false}) {
        SCOPED_TRACE(by_key ? "Alt+F4" : "close box");
        Game game(desktop);
        const WindowId first = game.window(Shown::start);
        wait_for("the focus", [&] { return person.focus() == first; });
        person.type({key_escape});
        if (by_key) {
            person.type({key_Alt, key_F4});
        } else {
            const WindowId main = game.play();
            wait_for("the focus", [&] { return person.focus() == main; });
            person.type({key_F2});
            person.request_close(game.window(Shown::start));
        }
        EXPECT_EQ(game.program().exit_code(), 0);
    }
}

/// A short game: a throw, the window dragged by its title bar, all windows.
void play_to_the_end(Game& game) {
    const WindowId main = game.play();
    const QImage normal = game.image(main, mnuOm);
    game.throw_die(main);

    const XClient& person = game.person();
    const QPoint end = person.place(main).topLeft() + QPoint(60, 40);
    const QPoint from = game.at(main, grip);
    person.point_at(from);
    person.press();
    person.point_at(from + QPoint(60, 40));
    person.release();
    wait_for("the window to move", [&] {
        constexpr int rounding = 4;  // pixels, at scales that are no whole numbers
        return (person.place(main).topLeft() - end).manhattanLength() <= rounding;
    });

    game.click(main, mnuOm);
    game.click(game.window(Shown::about), Klar);
    game.wait_until_gone(Shown::about);
    // Until its button is normal again, the main window may still take no clicks.
    wait_for("the normal button", [&] { return game.image(main, mnuOm) == normal; });
    game.click(main, butAvsluta);
    game.click(game.window(Shown::farewell), Stäng);
    EXPECT_EQ(game.program().exit_code(), 0);
}

// Looking for a window is looking for its size in pixels.
TEST(Desktops, OfAnyScale) {
    const Desktop desktop(Manager::openbox, {1920, 1400});
    for (const double scale : {1.25, 1.5, 2.0, 3.0}) {
        SCOPED_TRACE(scale);
        Game game(desktop, scale, {{"QT_SCALE_FACTOR", std::to_string(scale)}});
        play_to_the_end(game);
    }
}

TEST(Desktops, WithoutAWindowManagerTheGameHasTheKeyboard) {
    const Desktop desktop(Manager::none);
    {
        Game game(desktop);
        const WindowId main = game.play();
        wait_for("the focus", [&] { return desktop.person().focus() == main; });
        desktop.person().type({key_F2});
        game.window(Shown::start);
    }
    Game game(desktop);
    play_to_the_end(game);
}

TEST(Desktops, WithAManagerThatGivesNoFocus) {
    const Desktop desktop(Manager::none);
    const XClient& person = desktop.person();
    xcb_connection_t* const connection = person.connection();
    // To programs this is the manager's window; it never answers. It has the focus.
    const WindowId manager = person.create_window();
    xcb_map_window(connection, manager);
    const xcb_atom_t supported[] = {person.atom("_NET_SUPPORTING_WM_CHECK"),
                                    person.atom("_NET_ACTIVE_WINDOW")};
    for (const WindowId window : {person.root(), manager})
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, supported[0],
                            XCB_ATOM_WINDOW, 32, 1, &manager);
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, person.root(),
                        person.atom("_NET_SUPPORTED"), XCB_ATOM_ATOM, 32, 2, supported);
    xcb_set_input_focus(connection, XCB_INPUT_FOCUS_PARENT, manager, XCB_CURRENT_TIME);

    Game game(desktop);
    play_to_the_end(game);
    EXPECT_EQ(person.focus(), manager);
}

}  // namespace
}  // namespace brusbo::display
