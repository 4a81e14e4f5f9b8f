// The start of the program, and desktops without a window manager, with one that keeps the focus,
// and at the scales of larger displays.
#include <gtest/gtest.h>

#include "tests/display/harness/game.h"

namespace brusbo::display {
namespace {

TEST(StartWindow, IsClosedByRequestsButNotByEscape) {
    const Desktop desktop;
    const XClient& person = desktop.person();
    const struct {
        const char* name;
        bool new_game, by_key;
    } rows[] = {
        {"Alt+F4", false, true},
        {"close box", false, false},
        {"close box when a new game asks for its players", true, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Game game(desktop);
        WindowId window = game.window(Shown::start);
        const auto type = [&](const std::vector<Key>& keys) {
            wait_for("the focus", [&] { return person.focus() == window; });
            person.type(keys);
        };
        if (row.new_game) {
            type({key_escape});
            window = game.play();
            type({key_F2});
            window = game.window(Shown::start);
        }
        if (row.by_key)
            type({key_Alt, key_F4});
        else
            person.request_close(window);
        EXPECT_EQ(game.program().exit_code(), 0);
    }
}

/// Throws, and drags the window by its title bar.
void plays(Game& game) {
    const WindowId main = game.play();
    game.throw_die(main);
    const XClient& person = game.person();
    const QRect place = person.place(main);
    const QPoint moved(60, 40);
    const QPoint from = game.at(main, grip);
    person.point_at(from);
    person.press();
    person.point_at(from + moved);
    person.release();
    wait_for("the window to move", [&] { return person.place(main) == place.translated(moved); });
}

TEST(Manager, WithoutOneTheGamePlaysAndHasTheKeyboard) {
    const Desktop desktop(Manager::none);
    Game game(desktop);
    plays(game);
    game.person().type({key_F2});
    game.click(game.window(Shown::start), Starta);
    game.wait_until_gone(Shown::start);
}

TEST(Manager, WithOneThatGivesNoFocusTheGamePlaysByMouse) {
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
    EXPECT_EQ(person.focus(), manager);

    Game game(desktop);
    plays(game);
    EXPECT_EQ(person.focus(), manager);
}

// Looking for a window is looking for its size in pixels.
TEST(Scale, TheWindowsHaveTheirSizeAndAThrowWorks) {
    const Desktop desktop(Manager::openbox, {1920, 1400});
    for (const double scale : {1.25, 1.5, 2.0, 3.0}) {
        SCOPED_TRACE(scale);
        Game game(desktop, scale, {{"QT_SCALE_FACTOR", std::to_string(scale)}});
        const WindowId main = game.play();
        const QImage die = game.image(main, die_row);
        const QImage board = game.image(main, Picture1);
        game.throw_die(main);
        EXPECT_NE(game.image(main, die_row), die);
        EXPECT_EQ(game.image(main, Picture1), board);

        game.click(main, mnuOm);
        game.click(game.window(Shown::about), Klar);
        game.wait_until_gone(Shown::about);
        game.click(main, butAvsluta);
        game.click(game.window(Shown::farewell), Stäng);
        EXPECT_EQ(game.program().exit_code(), 0);
    }
}

}  // namespace
}  // namespace brusbo::display
