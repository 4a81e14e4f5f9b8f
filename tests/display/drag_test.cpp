// The window moves by its own title bar.
#include <gtest/gtest.h>

#include "tests/display/harness/game.h"

namespace brusbo::display {
namespace {

class Drag : public ::testing::Test {
   protected:
    QRect place() const { return person().place(main_); }
    const XClient& person() const { return game_.person(); }

    /// A button lights up, so all input before has been handled.
    void let_it_catch_up() {
        // The first movement may still belong to another button, and more that come at once count
        // as one.
        wait_for("a button to light up", [this] {
            game_.enter(main_, mnuOm);
            return game_.shows(main_, mnuOm.topLeft(), Picture::om_1);
        });
        person().point_at(game_.at(main_, QPointF(300, 300)));
        game_.wait_for_picture(main_, mnuOm.topLeft(), Picture::om_0);
    }

    Desktop desktop_;
    Game game_{desktop_};
    const WindowId main_ = game_.play();
};

TEST_F(Drag, FollowsThePointerAndStaysWhereItIsLetGo) {
    for (const int button : {1, 2, 3}) {
        SCOPED_TRACE("button " + std::to_string(button));
        const QRect start = place();
        const QPoint grip_place = game_.at(main_, grip);
        person().point_at(grip_place);
        person().press(button);
        QPoint moved;
        for (int step = 0; step < 12; ++step) {
            moved += {step % 2 == 0 ? 9 : -3, step % 3 - 2};
            person().point_at(grip_place + moved);
            wait_for("the window to follow", [&] { return place() == start.translated(moved); });
        }
        person().release(button);
        let_it_catch_up();
        EXPECT_EQ(place(), start.translated(moved));
    }
}

TEST_F(Drag, AFastFlickMovesByThePointersDistance) {
    for (const QPoint moved : {QPoint(-170, 60), QPoint(80, -90), QPoint(150, 120)}) {
        const QRect start = place();
        const QPoint grip_place = game_.at(main_, grip);
        person().point_at(grip_place);
        person().press();
        person().point_at(grip_place + moved);
        person().release();
        person().wait_for_free_pointer();
        person().point_at(grip_place + moved + QPoint(33, 44));
        wait_for("the window to move", [&] { return place() == start.translated(moved); });
        let_it_catch_up();
        EXPECT_EQ(place(), start.translated(moved));
    }
}

TEST_F(Drag, AFastClickDoesNotStick) {
    const QRect start = place();
    for (const int button : {1, 2, 3}) {
        person().click(game_.at(main_, grip), button);
        person().wait_for_free_pointer();
        person().point_at(game_.at(main_, QPointF(400, 200)));
        let_it_catch_up();
        EXPECT_EQ(place(), start) << "button " << button;
    }
}

TEST_F(Drag, OnlyTheBareTitleBarMovesTheWindow) {
    game_.throw_die(main_);  // shows labPjäser_klara
    struct Row {
        const char* name;
        QPoint from;
    };
    const Row rows[] = {
        {"Label1", Label1.center()},
        {"the end of Label1 without letters", {Label1.right() - 2, Label1.center().y()}},
        {"labPjäser_klara", {labPjäser_klara.right() - 8, labPjäser_klara.center().y()}},
        {"mnuArkiv", mnuArkiv.center()},
        {"mnuOm", mnuOm.center()},
        {"butMini", butMini.center()},
        {"butAvsluta", butAvsluta.center()},
        {"the side panel", {100, 380}},
        {"the board", {380, 60}},
        {"the margin", {1, 200}},
    };
    const QRect start = place();
    for (const Row& row : rows) {
        const QPoint from = game_.at(main_, row.from);
        person().point_at(from);
        person().press();
        // To a place where a release clicks nothing.
        person().point_at(from + QPoint(5, 3));
        person().point_at(game_.at(main_, QPointF(380, 250)));
        person().release();
        person().wait_for_free_pointer();
        SCOPED_TRACE(row.name);
        let_it_catch_up();
        EXPECT_EQ(place(), start);
    }
    EXPECT_EQ(game_.person().windows_of("brusbo").size(), 1U);
}

}  // namespace
}  // namespace brusbo::display
