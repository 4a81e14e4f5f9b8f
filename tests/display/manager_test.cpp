// Desktops without a window manager, or with one that keeps the focus.
#include <gtest/gtest.h>

#include "tests/display/harness/game.h"

namespace brusbo::display {
namespace {

/// Throws, and drags the window by its title bar.
void plays(Game& game) {
    const WindowId main = game.play();
    const QImage die = game.image(main, die_row);
    game.throw_die(main);
    EXPECT_NE(game.image(main, die_row), die);

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
    const WindowId manager = xcb_generate_id(connection);
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, manager, person.root(), -9, -9, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_map_window(connection, manager);
    const xcb_atom_t supported[] = {person.atom("_NET_SUPPORTING_WM_CHECK"),
                                    person.atom("_NET_ACTIVE_WINDOW")};
    for (const WindowId window : {person.root(), manager})
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, supported[0],
                            XCB_ATOM_WINDOW, 32, 1, &manager);
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, person.root(),
                        person.atom("_NET_SUPPORTED"), XCB_ATOM_ATOM, 32, 2, supported);
    person.give_focus(manager);

    Game game(desktop);
    plays(game);
    EXPECT_EQ(person.focus(), manager);
}

}  // namespace
}  // namespace brusbo::display
