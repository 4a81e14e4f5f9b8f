#pragma once

#include <gtest/gtest.h>

#include "tests/display/harness/game.h"

namespace brusbo::display {

struct Button {
    const char* name;
    QRect area;
    Picture normal;  ///< the lit one is the next
};
inline constexpr Button buttons[] = {
    {"mnuArkiv", mnuArkiv, picture("arkiv-0")},
    {"mnuOm", mnuOm, picture("om-0")},
    {"butMini", butMini, picture("minimise-0")},
    {"butAvsluta", butAvsluta, picture("close-0")},
};

/// A game that has just begun, on a desktop with a window manager.
class OnDesktop : public testing::Test {
   protected:
    const XClient& person() const { return desktop_.person(); }
    QRect place() const { return person().place(main_); }
    void point_at(QPoint place) { person().point_at(game_.at(main_, place)); }
    void expect_sounds(const std::string& names) { game_.program().wait_for_sounds(names); }

    void wait_until_lit(const Button& button) {
        game_.wait_for_picture(main_, button.area.topLeft(), nth(button.normal, 1));
    }
    void wait_until_normal(const Button& button) {
        game_.wait_for_picture(main_, button.area.topLeft(), button.normal);
    }
    /// Points at a picture button and clicks it.
    void press(const QRect& button) {
        game_.enter(main_, button);
        expect_sounds("s2");
        game_.click(main_, button);
    }
    /// A button lights up and goes out, so all input before has been handled. Sounds: s2.
    void let_it_catch_up() {
        // The first movement may still belong to another button, and more that come at once count
        // as one.
        wait_for("a button to light up", [this] {
            game_.enter(main_, mnuOm);
            return game_.shows(main_, mnuOm.topLeft(), picture("om-1"));
        });
        point_at(bare_board);
        game_.wait_for_picture(main_, mnuOm.topLeft(), picture("om-0"));
    }
    void type_into(WindowId window, const std::vector<Key>& keys) {
        wait_for("the focus", [&] { return person().focus() == window; });
        person().type(keys);
    }

    Desktop desktop_;
    Game game_{desktop_};
    const WindowId main_ = game_.play();
};

}  // namespace brusbo::display
