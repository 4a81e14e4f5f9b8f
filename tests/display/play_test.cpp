// A player starts the program and throws the die.
#include <gtest/gtest.h>

#include "tests/display/harness/game.h"

namespace brusbo::display {
namespace {

TEST(Play, StartsThrowsAndTellsTheThrow) {
    const Desktop desktop;
    Game game(desktop);
    const WindowId start = game.window(Shown::start);
    EXPECT_EQ(game.person().title(start), "Brusbo");
    EXPECT_EQ(game.find(Shown::main), 0U);

    const WindowId main = game.play();
    EXPECT_EQ(game.person().title(main), "Brusbo");
    EXPECT_EQ(game.person().place(main).size(), QSize(570, 416));
    const QImage board = game.image(main, Picture1);
    const QImage die = game.image(main, die_row);
    const QImage count = game.image(main, labPjäser_klara);

    game.throw_die(main);
    EXPECT_NE(game.image(main, die_row), die);
    EXPECT_NE(game.image(main, labPjäser_klara), count);
    EXPECT_EQ(game.image(main, Picture1), board);
    game.program().wait_for_sounds({"s1.wav", "s3.wav"});
}

// A piece comes out with the first 1 or 6; with any other throw the turn is handed on, and the
// highlight moves to the other nest.
TEST(Play, TurnsAreHandedOnUntilAPieceComesOut) {
    const Desktop desktop;
    Game game(desktop);
    const WindowId main = game.play();
    bool out = false;
    while (!out) {
        const QImage board = game.image(main, Picture1);
        game.throw_die(main);
        const QImage told = game.image(main, labMeddelande);
        const QRgb yellow = 0xFFFFFF00;
        out = game.image(main, butEn_pjäs).pixel(4, 4) == yellow;
        game.click(main, butEn_pjäs);  // or the upper part of butNästa
        game.wait_for_change("the board", main, Picture1, board);
        if (!out) game.wait_for_change("the message", main, labMeddelande, told);
    }
}

}  // namespace
}  // namespace brusbo::display
