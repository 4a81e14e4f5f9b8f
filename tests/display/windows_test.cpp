// The game menu, minimising, the about and farewell windows, and what close and maximise requests
// do.
#include "tests/display/fixture.h"

namespace brusbo::display {
namespace {

class Windows : public OnDesktop {
   protected:
    WindowId open_menu() {
        press(mnuArkiv);
        return game_.menu();
    }
    /// Opens the menu and clicks so far down in it, as a part of its height.
    void choose(double down) {
        const QRect menu = person().place(open_menu());
        person().click({menu.center().x(), menu.top() + static_cast<int>(down * menu.height())});
    }
    void expect_normal_buttons() {
        for (const Button& button : buttons) wait_until_normal(button);
    }
    /// Presses Starta when a new game asks for its players.
    void start_again() {
        game_.click(game_.window(Shown::start), Starta);
        game_.wait_until_gone(Shown::start);
        point_at(bare_board);
    }
    WindowId farewell() {
        press(butAvsluta);
        expect_sounds("s1");
        return game_.window(Shown::farewell);
    }
};

constexpr double Nytt_spel = 0.17;
constexpr double Nytt_snabbt = 0.45;
constexpr double Avsluta = 0.85;

TEST_F(Windows, AThrowIsSeenAndHeardAndTurnsAreHandedOnUntilAPieceComesOut) {
    const QImage count = game_.image(main_, labPjäser_klara);
    for (bool out = false; !out;) {
        const QImage board = game_.image(main_, Picture1);
        game_.throw_die(main_);
        EXPECT_EQ(game_.image(main_, Picture1), board);
        const QImage told = game_.image(main_, labMeddelande);
        // With the first 1 or 6; with any other throw the highlight moves to the other nest.
        const QRgb yellow = 0xFFFFFF00;
        out = game_.image(main_, butEn_pjäs).pixel(4, 4) == yellow;
        game_.click(main_, butEn_pjäs);  // or the upper part of butNästa
        game_.wait_for_change("the board", main_, Picture1, board);
        if (!out) game_.wait_for_change("the message", main_, labMeddelande, told);
    }
    EXPECT_NE(game_.image(main_, labPjäser_klara), count);
}

TEST_F(Windows, TheMenuOpensBelowItsButtonAndClosesWithAndWithoutAChoice) {
    const std::function<void()> ways[] = {[this] { person().type({key_escape}); },
                                          [this] {
                                              person().click({3, 3});
                                          }};
    for (const auto& close : ways) {
        const WindowId menu = open_menu();
        wait_for("its place",
                 [&] { return person().place(menu).topLeft() == game_.at(main_, QPoint(14, 28)); });
        wait_until_lit(buttons[0]);
        close();
        expect_sounds("s1");
        wait_until_normal(buttons[0]);
        point_at(bare_board);
    }
    choose(Avsluta);
    game_.window(Shown::farewell);
    EXPECT_TRUE(game_.program().runs());
}

TEST_F(Windows, TheMenuBeginsNewGames) {
    const QImage first_message = game_.image(main_, labMeddelande);
    game_.throw_die(main_);
    expect_sounds("s3");
    QImage told = game_.image(main_, labMeddelande);
    choose(Nytt_snabbt);
    game_.wait_for_change("the message", main_, labMeddelande, told);
    expect_sounds("s1");
    // Later games begin with a line that the first one spells differently.
    EXPECT_NE(game_.image(main_, labMeddelande), first_message);
    EXPECT_EQ(game_.find(Shown::start), 0U);

    point_at(bare_board);
    game_.throw_die(main_);
    expect_sounds("s3");
    told = game_.image(main_, labMeddelande);
    choose(Nytt_spel);
    game_.window(Shown::start);
    game_.click(main_, {60, 180, 1, 1});  // the main window takes nothing meanwhile
    person().wait_for_free_pointer();
    start_again();
    game_.wait_for_change("the message", main_, labMeddelande, told);
    wait_until_normal(buttons[0]);
    game_.throw_die(main_);
}

TEST_F(Windows, F2AsksForANewGame) {
    for (int time = 0; time < 2; ++time) {
        type_into(main_, {key_F2});
        start_again();
        expect_sounds("s1");
        // Until then the main window may still take no keys.
        let_it_catch_up();
        expect_sounds("s2");
    }
    open_menu();
    person().type({key_F2});
    start_again();
    wait_until_normal(buttons[0]);
    EXPECT_EQ(person().windows_of("brusbo").size(), 1U);
}

TEST_F(Windows, MinimisesAndComesBackAsItWas) {
    game_.throw_die(main_);
    expect_sounds("s3");
    const QRect before_place = place();
    const QRect all = QRect({0, 34}, QSize(570, 382));
    const QImage before = game_.image(main_, all);
    const auto state = [this] { return person().property(main_, "WM_STATE").at(0); };
    constexpr std::uint32_t normal = 1, iconic = 3;
    // Other types are not on task bars.
    EXPECT_EQ(person().property(main_, "_NET_WM_WINDOW_TYPE").at(0),
              person().atom("_NET_WM_WINDOW_TYPE_NORMAL"));
    press(butMini);
    expect_sounds("s1");
    wait_for("the window to go", [&] { return state() == iconic; });
    person().point_at({3, 3});

    const auto come_back = [&] {
        constexpr std::uint32_t task_bar = 2;
        person().ask_manager(main_, "_NET_ACTIVE_WINDOW", {task_bar, XCB_CURRENT_TIME, 0});
        wait_for("the window to return", [&] {
            return state() == normal && place() == before_place &&
                   game_.image(main_, all) == before;
        });
    };
    come_back();
    expect_normal_buttons();

    // Again, perhaps before the program has heard that it came back.
    for (int time = 0; time < 3; ++time) {
        game_.click(main_, butMini);
        person().wait_for_free_pointer();
        person().point_at({3, 3});
        wait_for("the window to go again", [&] { return state() == iconic; });
        come_back();
    }
}

TEST_F(Windows, TheAboutWindowIsModalUntilItIsClosed) {
    const QImage die = game_.image(main_, die_row);
    const struct {
        const char* name;
        std::function<void(WindowId)> close;
        const char* heard;
    } rows[] = {
        {"Klar", [this](WindowId about) { game_.click(about, Klar); }, "s1"},
        {"close box", [this](WindowId about) { person().request_close(about); }, ""},
        {"Alt+F4",
         [this](WindowId about) {
             type_into(about, {key_Alt, key_F4});
         },
         ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        press(mnuOm);
        expect_sounds("s1");
        const WindowId about = game_.window(Shown::about);
        game_.click(main_, {40, 170, 30, 30});
        person().wait_for_free_pointer();
        row.close(about);
        game_.wait_until_gone(Shown::about);
        expect_normal_buttons();
        expect_sounds(row.heard);
        // Further sounds would come before this one.
        let_it_catch_up();
        expect_sounds("s2");
        EXPECT_EQ(game_.image(main_, die_row), die);
    }
    EXPECT_EQ(game_.find(Shown::farewell), 0U);
}

TEST_F(Windows, TheFarewellWindowIsResizedByItsFrameAndItsElementsStay) {
    const WindowId slut = farewell();
    const struct {
        const char* name;
        int column, row;  // of the frame: 0 first, 1 middle, 2 last
        QMargins grows;   // with the pointer 40 to the right and 30 down
    } rows[] = {
        {"right", 2, 1, {0, 0, 40, 0}},         {"bottom", 1, 2, {0, 0, 0, 30}},
        {"bottom right", 2, 2, {0, 0, 40, 30}}, {"left", 0, 1, {-40, 0, 0, 0}},
        {"top", 1, 0, {0, -30, 0, 0}},          {"top left", 0, 0, {-40, -30, 0, 0}},
    };
    person().point_at({3, 3});
    // Without the mark of the focus, which may come late.
    const auto elements = [&] {
        return std::pair(game_.image(slut, {10, 10, 220, 194}),
                         game_.image(slut, Stäng.adjusted(6, 6, -6, -6)));
    };
    const auto before = elements();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const QRect start = person().place(slut);
        const QRect wanted = start + row.grows;
        const QPoint from = start.topLeft() + QPoint(1 + row.column * (start.width() - 3) / 2,
                                                     1 + row.row * (start.height() - 3) / 2);
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
    type_into(main_, {key_Alt, key_F4});
    const WindowId slut = game_.window(Shown::farewell);
    expect_sounds("s1");
    wait_for("its place over the middle of the main window", [&] {
        const QPoint off = person().place(slut).center() - place().center();
        constexpr int frame = 30;
        return off.manhattanLength() < frame;
    });

    person().request_close(slut);
    let_it_catch_up();
    expect_sounds("s2");
    EXPECT_EQ(game_.find(Shown::farewell), slut);
    type_into(slut, {key_Alt, key_F4});
    person().type({key_escape});
    // The main window stays usable beside it, and asks for it again.
    EXPECT_EQ(farewell(), slut);
    game_.click(slut, Stäng);
    EXPECT_EQ(game_.program().exit_code(), 0);
    EXPECT_EQ(game_.program().output(), "");
}

TEST_F(Windows, MaximisingChangesNoFixedSize) {
    press(mnuOm);
    for (const WindowId window : {game_.window(Shown::about), main_}) {
        const QSize size = person().place(window).size();
        constexpr std::uint32_t add = 1;
        person().ask_manager(window, "_NET_WM_STATE",
                             {add, person().atom("_NET_WM_STATE_MAXIMIZED_VERT"),
                              person().atom("_NET_WM_STATE_MAXIMIZED_HORZ"), 2});
        // The manager handles one request after the other.
        constexpr std::uint32_t x_and_y_by_static_gravity = 10 | 3U << 8U;
        person().ask_manager(window, "_NET_MOVERESIZE_WINDOW", {x_and_y_by_static_gravity, 40, 50});
        wait_for("the manager", [&] { return person().place(window).topLeft() == QPoint(40, 50); });
        EXPECT_EQ(person().place(window).size(), size);
    }
}

TEST_F(Windows, ATerminationSignalEndsTheProgramAtOnceDuringAThrowToo) {
    game_.click(main_, {40, 170, 30, 30});
    expect_sounds("s3");
    game_.program().terminate();
    EXPECT_NE(game_.program().exit_code(), 0);
}

}  // namespace
}  // namespace brusbo::display
