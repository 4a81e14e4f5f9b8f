// The title bar moves the window, and its picture buttons light up under the mouse.
#include "tests/display/fixture.h"

namespace brusbo::display {
namespace {

using Drag = OnDesktop;

TEST_F(Drag, FollowsThePointerAndStaysWhereItIsLetGo) {
    for (const int button : {1, 2, 3}) {
        SCOPED_TRACE("button " + std::to_string(button));
        const QRect start = place();
        const QPoint from = game_.at(main_, grip);
        person().point_at(from);
        person().press(button);
        QPoint moved;
        for (int step = 0; step < 12; ++step) {
            moved += {step % 2 == 0 ? 9 : -3, step % 3 - 2};
            person().point_at(from + moved);
            wait_for("the window to follow", [&] { return place() == start.translated(moved); });
        }
        person().release(button);
        let_it_catch_up();
        EXPECT_EQ(place(), start.translated(moved));
    }
}

TEST_F(Drag, FastFlicksMoveByThePointersDistanceAndNothingSticks) {
    const struct {
        const char* name;
        int button;
        QPoint from, drag;
        bool moves;
    } rows[] = {
        {"flick to the lower left", 1, grip, {-170, 60}, true},
        {"flick to the upper right", 1, grip, {80, -90}, true},
        {"flick with the middle button", 2, grip, {150, 120}, true},
        {"click", 1, grip, {}, false},
        {"click with the middle button", 2, grip, {}, false},
        {"click with the right button", 3, grip, {}, false},
        {"from Label1", 1, Label1.center(), {60, 150}, false},
        {"from a picture button", 1, mnuArkiv.center(), {200, 230}, false},
        {"from the board", 1, bare_board, {30, -30}, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const QRect end = place().translated(row.moves ? row.drag : QPoint());
        const QPoint from = game_.at(main_, row.from);
        person().point_at(from);
        person().press(row.button);
        person().point_at(from + row.drag);
        person().release(row.button);
        person().wait_for_free_pointer();
        person().point_at(from + row.drag + QPoint(33, 44));
        wait_for("the window to move", [&] { return place() == end; });
        let_it_catch_up();
        EXPECT_EQ(place(), end);
    }
    EXPECT_EQ(person().windows_of("brusbo").size(), 1U);
}

using Hover = OnDesktop;

TEST_F(Hover, LightsUpWithOneSoundForEachEntering) {
    for (const Button& button : buttons) {
        SCOPED_TRACE(button.name);
        // Over the board, then out of the window in one leap.
        for (const QPoint outside : {game_.at(main_, bare_board), QPoint(3, 3)}) {
            point_at(button.area.center());
            wait_until_lit(button);
            // Further sounds would come before the next one of these.
            expect_sounds("s2");
            for (const QPoint inside : {button.area.topLeft(), button.area.bottomRight()})
                point_at(inside);
            person().point_at(outside);
            wait_until_normal(button);
        }
    }
    point_at(mnuArkiv.center());
    expect_sounds("s2");
}

TEST_F(Hover, HandsOverWhenThePointerGoesStraightToTheNextButton) {
    point_at(mnuArkiv.center());
    wait_until_lit(buttons[0]);
    expect_sounds("s2");
    for (const std::size_t next : {1U, 2U, 3U, 0U}) {
        const Button& to = buttons[next];
        SCOPED_TRACE(to.name);
        // The first movement still belongs to the button that is left.
        point_at(to.area.center());
        wait_until_normal(buttons[(next + 3) % 4]);
        EXPECT_FALSE(game_.shows(main_, to.area.topLeft(), nth(to.normal, 1)));
        point_at(to.area.center() + QPoint(1, 0));
        wait_until_lit(to);
        expect_sounds("s2");
    }
}

}  // namespace
}  // namespace brusbo::display
