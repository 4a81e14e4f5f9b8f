// The windows at the scales of larger displays.
#include <gtest/gtest.h>

#include "tests/display/harness/game.h"

namespace brusbo::display {
namespace {

class Scale : public ::testing::TestWithParam<double> {};

// Looking for a window is looking for its size in pixels.
TEST_P(Scale, TheWindowsHaveTheirSizeAndAThrowWorks) {
    const Desktop desktop(Manager::openbox, {1920, 1400});
    Game game(desktop, GetParam());
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
    EXPECT_EQ(game.program().process().exit_code(), 0);
}

INSTANTIATE_TEST_SUITE_P(, Scale, ::testing::Values(1.25, 1.5, 2, 3), [](const auto& scale) {
    return std::to_string(static_cast<int>(100 * scale.param));
});

}  // namespace
}  // namespace brusbo::display
