// The picture buttons light up under the mouse.
#include <gtest/gtest.h>

#include "tests/display/harness/game.h"

namespace brusbo::display {
namespace {

struct Row {
    const char* name;
    QRect area;
    Picture normal;
};

constexpr Row rows[] = {
    {"mnuArkiv", mnuArkiv, Picture::arkiv_0},
    {"mnuOm", mnuOm, Picture::om_0},
    {"butMini", butMini, Picture::minimise_0},
    {"butAvsluta", butAvsluta, Picture::close_0},
};

class Hover : public ::testing::Test {
   protected:
    const XClient& person() const { return game_.person(); }
    void point_at(QPoint place) { person().point_at(game_.at(main_, place)); }
    bool is_lit(const Row& row) {
        return game_.shows(main_, row.area.topLeft(), nth(row.normal, 1));
    }
    void wait_until_lit(const Row& row) {
        game_.wait_for_picture(main_, row.area.topLeft(), nth(row.normal, 1));
    }
    void wait_until_normal(const Row& row) {
        game_.wait_for_picture(main_, row.area.topLeft(), row.normal);
    }
    void expect_sound(const char* name) {
        heard_.emplace_back(name);
        game_.program().wait_for_sounds(heard_);
    }

    Desktop desktop_;
    Game game_{desktop_};
    const WindowId main_ = game_.play();
    std::vector<std::string> heard_{"s1.wav"};
};

TEST_F(Hover, LightsUpWithOneSoundForEachEntering) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        point_at(row.area.center());
        wait_until_lit(row);
        expect_sound("s2.wav");
        // Inside, the last pixels included, nothing changes.
        point_at(row.area.topLeft());
        point_at(row.area.bottomRight());
        point_at(row.area.center());
        point_at({300, 300});
        wait_until_normal(row);
    }
    // Further sounds would have come before this one.
    point_at(rows[0].area.center());
    expect_sound("s2.wav");
}

TEST_F(Hover, TheRightAndLowerBoundsAreInclusive) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const QPoint beyond = row.area.bottomRight() + QPoint(1, 1);
        struct Edge {
            QPoint last_inside, first_outside;
        };
        const QPoint middle = row.area.center();
        const Edge edges[] = {
            {{beyond.x(), middle.y()}, {beyond.x() + 1, middle.y()}},
            {{middle.x(), beyond.y()}, {middle.x(), beyond.y() + 1}},
            {{row.area.left(), middle.y()}, {row.area.left() - 1, middle.y()}},
            {{middle.x(), row.area.top()}, {middle.x(), row.area.top() - 1}},
        };
        for (const Edge& edge : edges) {
            point_at(middle);
            wait_until_lit(row);
            expect_sound("s2.wav");
            // Were this outside, the way back in would sound again.
            point_at(edge.last_inside);
            point_at(middle);
            point_at(edge.first_outside);
            wait_until_normal(row);
        }
    }
    point_at(rows[0].area.center());
    expect_sound("s2.wav");
}

TEST_F(Hover, HandsOverWhenThePointerGoesStraightToTheNextButton) {
    point_at(rows[0].area.center());
    wait_until_lit(rows[0]);
    expect_sound("s2.wav");
    for (std::size_t next : {1U, 2U, 3U, 0U}) {
        const Row& from = rows[(next + 3) % 4];
        const Row& to = rows[next];
        SCOPED_TRACE(std::string(from.name) + " to " + to.name);
        // The first movement still belongs to the button that is left.
        point_at(to.area.center());
        wait_until_normal(from);
        EXPECT_FALSE(is_lit(to));
        point_at(to.area.center() + QPoint(1, 0));
        wait_until_lit(to);
        expect_sound("s2.wav");
    }
}

TEST_F(Hover, GoesOutWhenThePointerLeavesTheWindowInOneLeap) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        point_at(row.area.center());
        wait_until_lit(row);
        expect_sound("s2.wav");
        person().point_at({3, 3});
        wait_until_normal(row);
    }
}

}  // namespace
}  // namespace brusbo::display
