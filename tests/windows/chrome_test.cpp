// The main window's own title bar, its menu, the about and farewell windows, keys and close
// requests everywhere.

#include <QApplication>
#include <QMenu>
#include <QTest>
#include <QWindow>

#include "tests/windows/stage.h"

namespace brusbo::test {
namespace {

constexpr const char* picture_buttons[] = {"mnuArkiv", "mnuOm", "butMini", "butAvsluta"};

class Chrome : public Stage {
   protected:
    /// The picture buttons that are lit.
    static std::string lit() {
        const Picture lights[] = {Picture::arkiv_1, Picture::om_1, Picture::minimise_1,
                                  Picture::close_1};
        std::string names;
        for (int i = 0; i < 4; ++i)
            if (dynamic_cast<PictureButton&>(at(picture_buttons[i])).picture() == lights[i])
                names += (names.empty() ? "" : " ") + std::string(picture_buttons[i]);
        return names;
    }

    /// Runs `act` while the game menu is open.
    void in_menu(std::function<void()> act) {
        when([] { return QApplication::activePopupWidget() != nullptr; }, std::move(act));
    }

    static void choose(const char* item) {
        auto& menu = dynamic_cast<QMenu&>(*QApplication::activePopupWidget());
        for (QAction* action : menu.actions())
            if (action->objectName() == item)
                QTest::mouseClick(menu.windowHandle(), Qt::LeftButton, {},
                                  menu.actionGeometry(action).center());
    }
};

class Hover : public Chrome, public testing::WithParamInterface<int> {};

TEST_P(Hover, LightsUpAndSoundsOnceBetweenInclusiveBounds) {
    start();
    const std::string name = picture_buttons[GetParam()];
    const QRect box(at(name).mapTo(window("MFrm"), QPoint()), at(name).size());
    world->at_sound = [&] { EXPECT_EQ(lit(), name) << "the picture comes before the sound"; };
    const struct {
        QPoint place;
        const char *purpose, *heard;
        bool lights;
    } steps[] = {
        {box.center(), "entering", "s2", true},
        {box.topLeft(), "inside", "", true},
        {{box.left() + box.width(), box.top() + 1}, "one beyond the right edge", "", true},
        {{box.left() + 1, box.top() + box.height()}, "one beyond the lower edge", "", true},
        {{box.left() + box.width() + 1, box.top() + 1}, "two beyond the right edge", "", false},
        {box.center(), "entering again", "s2", true},
        {{box.left() - 1, box.top() + 1}, "one left of it", "", false},
        {box.center(), "and again", "s2", true},
        {{box.left() + 1, box.top() - 1}, "one above it", "", false},
        {box.bottomRight(), "from below", "s2", true},
        {{box.left() + 1, box.top() + box.height() + 1}, "two beyond the lower edge", "", false},
        {{box.left() + box.width(), box.top() + 1}, "the edge does not light it", "", false},
    };
    for (const auto& step : steps) {
        hover(step.place);
        EXPECT_EQ(world->heard(), step.heard) << step.purpose;
        EXPECT_EQ(lit(), step.lights ? name : "") << step.purpose;
    }
}

INSTANTIATE_TEST_SUITE_P(Buttons, Hover, testing::Range(0, 4));

TEST_F(Chrome, TheFirstMovementOnAnotherButtonBelongsToTheLitOne) {
    start();
    hover({30, 15});
    EXPECT_EQ(lit(), "mnuArkiv");
    world->heard();
    hover({80, 20});
    EXPECT_EQ(lit() + world->heard(), "");
    hover({82, 20});
    EXPECT_EQ(lit() + " " + world->heard(), "mnuOm s2");
    hover({300, 300});
    EXPECT_EQ(lit(), "") << "far away on the board";
}

TEST_F(Chrome, NoSoundWithSoundOff) {
    load();
    click("Startfrm/Sound");
    click("Startfrm/Starta");
    settle();
    world->heard();
    hover({30, 15});
    EXPECT_EQ(lit(), "mnuArkiv");
    throw_die(3);
    click("butNästa");
    EXPECT_EQ(world->heard(), "");
}

TEST_F(Chrome, EveryPictureIsNormalAfterwardsButTheCloseButtons) {
    start();
    const struct {
        const char* name;
        std::function<void()> meanwhile;
        const char* heard;
        const char* lit;
    } rows[] = {
        {"mnuArkiv", [&] { in_menu([] { key("MFrm", Qt::Key_Escape); }); }, "s2 s1", ""},
        {"mnuArkiv", [&] { in_menu([] {
                               click_at("MFrm", {300, 300});
                           }); }, "s2 s1", ""},
        {"mnuArkiv", [&] { in_menu([] { press_accessibly("mnuArkiv"); }); }, "s2 s1 s1", ""},
        {"mnuOm", [&] { when_shown("frmOm", [] { click("frmOm/Klar"); }); }, "s2 s1 s1", ""},
        {"mnuOm", [&] { when_shown("frmOm", [] { request_close("frmOm"); }); }, "s2 s1", ""},
        {"butMini", [] {}, "s2 s1", ""},
        {"butAvsluta", [] {}, "s2 s1", "butAvsluta"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        hover({300, 300});
        hover(at(row.name).mapTo(window("MFrm"), QPoint(5, 5)));
        EXPECT_EQ(lit(), row.name);
        row.meanwhile();
        click(row.name);
        settle();
        EXPECT_EQ(world->heard(), row.heard);
        EXPECT_EQ(lit(), row.lit);
        EXPECT_EQ(window("MFrm")->isMinimized(), std::string(row.name) == "butMini");
        window("MFrm")->showNormal();
        EXPECT_EQ(difference(), "");
    }
}

TEST_F(Chrome, MenuItems) {
    start();
    const auto play_a_little = [] {
        place(1, {7, 0, 0, 55});
        Senaste_slag = 0;
        screen().set_tag(Element::Tärning, "");
        screen().set_picture(Element::Tärning, {Store::T, 0});
    };
    const struct {
        const char* item;
        std::function<void()> meanwhile;
        const char *heard, *squares_after;
    } rows[] = {
        {"nada", [] { key("MFrm", Qt::Key_Escape); }, "s2 s1", "7 0 0 55"},
        {"mnuNytt_snabbt", [] {}, "s2 s1", "0 0 0 0"},
        {"mnuAvsluta", [] {}, "s2 s1 s1", "7 0 0 55"},
        {"mnuNytt_spel", [&] { when_shown("Startfrm", [] { click("Startfrm/Starta"); }); },
         "s2 s1 s1", "0 0 0 0"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.item);
        play_a_little();
        in_menu([&] {
            row.meanwhile();
            if (QApplication::activePopupWidget() != nullptr) choose(row.item);
        });
        click("mnuArkiv");
        settle();
        EXPECT_EQ(world->heard(), row.heard);
        EXPECT_EQ(squares(1), row.squares_after);
        EXPECT_EQ(difference(), "");
        EXPECT_EQ(shown("Slut"), std::string(row.item) == "mnuAvsluta");
        if (shown("Slut")) window("Slut")->hide();
        hover({300, 300});
    }
    EXPECT_TRUE(ends.empty());
}

TEST_F(Chrome, F2) {
    start();
    const auto starts_a_new_game = [&](const std::function<void()>& press) {
        bool asked = false;
        when_shown("Startfrm", [&] {
            asked = true;
            EXPECT_EQ(squares(1), "0 0 0 0");
            key("Startfrm", Qt::Key_F2);
            click("Startfrm/Starta");
        });
        press();
        settle();
        EXPECT_EQ(difference(), "");
        return asked;
    };
    place(1, {7, 0, 0, 0});
    EXPECT_TRUE(starts_a_new_game([] { key("MFrm", Qt::Key_F2); }));
    EXPECT_EQ(world->heard(), "s1") << "of Starta alone";

    place(1, {7, 0, 0, 0});
    EXPECT_TRUE(starts_a_new_game([&] {
        in_menu([] { key("MFrm", Qt::Key_F2); });
        click("mnuArkiv");
    }));
    EXPECT_EQ(world->heard(), "s2 s1 s1");

    place(1, {7, 0, 0, 0});
    EXPECT_TRUE(starts_a_new_game([&] {
        world->at_pause = [&](int) {
            if (world->pauses % 6 == 2) key("MFrm", Qt::Key_F2);
            EXPECT_EQ(squares(1), "7 0 0 0") << "not during a throw";
        };
        script(5);
        click("Tärning");
    }));
    EXPECT_EQ(Senaste_slag, 5) << "it came after the throw";
    world->at_pause = [](int) {};

    place(1, {7, 0, 0, 0});
    when_shown("frmOm", [] {
        key("MFrm", Qt::Key_F2);
        key("frmOm", Qt::Key_F2);
        click("frmOm/Klar");
    });
    click("mnuOm");
    settle();
    EXPECT_FALSE(shown("Startfrm")) << "never while a modal window is open";
    EXPECT_EQ(squares(1), "7 0 0 0");
}

TEST_F(Chrome, TheTitleBarMovesTheWindowWhereItIsUncovered) {
    start();
    const struct {
        QPoint place;
        Qt::MouseButton button;
        const char* purpose;
        bool moves;
    } rows[] = {
        {{320, 5}, Qt::LeftButton, "above the labels", true},
        {{320, 30}, Qt::RightButton, "with the right button", true},
        {{112, 20}, Qt::MiddleButton, "between om and the address", true},
        {{530, 30}, Qt::LeftButton, "below minimise", true},
        {{150, 18}, Qt::LeftButton, "on the address", false},
        {{30, 18}, Qt::RightButton, "on a picture button", false},
        {{400, 100}, Qt::LeftButton, "on the board", false},
        {{400, 18}, Qt::LeftButton, "where the hidden count is", true},
        {{400, 18}, Qt::RightButton, "on the visible count", false},
    };
    QWidget& main_window = *window("MFrm");
    for (const auto& row : rows) {
        if (std::string(row.purpose) == "on the visible count") throw_die(2);
        const QPoint before = main_window.pos();
        QWindow* const handle = main_window.windowHandle();
        QTest::mousePress(handle, row.button, {}, row.place);
        // The places are of the window, which goes along.
        QTest::mouseMove(handle, row.place + QPoint(25, 10));
        QTest::mouseMove(handle, row.place + QPoint(5, -30));
        QTest::mouseRelease(handle, row.button, {}, row.place);
        EXPECT_EQ(main_window.pos() - before, row.moves ? QPoint(30, -20) : QPoint())
            << row.purpose;
        hover(row.place + QPoint(40, 40));
        EXPECT_EQ(main_window.pos() - before, row.moves ? QPoint(30, -20) : QPoint())
            << "let go: " << row.purpose;
    }
}

TEST_F(Chrome, FarewellWindow) {
    start();
    click("butAvsluta");
    throw_die(4);
    EXPECT_TRUE(visible("butNästa")) << "the game goes on beside it";
    QWidget* const farewell = window("Slut");
    const QRect stands = farewell->geometry();
    click("butAvsluta");
    EXPECT_EQ(window("Slut"), farewell);
    EXPECT_EQ(QApplication::activeWindow(), farewell);
    std::vector<QRect> places;
    for (const char* name : {"Label1", "Text", "Label2", "Stäng"})
        places.push_back(at("Slut/" + std::string(name)).geometry());
    const struct {
        QPoint from, by;
        QRect resized;
    } pulls[] = {{{311, 100}, {30, 5}, stands.adjusted(0, 0, 30, 0)},
                 {{1, 1}, {-10, -20}, stands.adjusted(-10, -20, 30, 0)},
                 {{160, 231}, {0, 40}, stands.adjusted(-10, -20, 30, 40)}};
    for (const auto& pull : pulls) {
        QWindow* const handle = farewell->windowHandle();
        const QPoint to = farewell->mapToGlobal(pull.from + pull.by);
        QTest::mousePress(handle, Qt::LeftButton, {}, pull.from);
        QTest::mouseMove(handle, pull.from + pull.by);
        QTest::mouseRelease(handle, Qt::LeftButton, {}, farewell->mapFromGlobal(to));
        EXPECT_EQ(farewell->geometry(), pull.resized);
    }
    for (const char* name : {"Stäng", "Label2", "Text", "Label1"}) {
        EXPECT_EQ(at("Slut/" + std::string(name)).geometry(), places.back()) << name;
        places.pop_back();
    }
    world->heard();
    key("Slut", Qt::Key_Escape);
    request_close("Slut");
    EXPECT_TRUE(shown("Slut"));
    EXPECT_TRUE(ends.empty());
    click("Slut/Stäng");
    EXPECT_EQ(world->heard(), "s1");
    EXPECT_EQ(ends, std::vector{0});
}

TEST_F(Chrome, KeysAndCloseRequestsInTheStartWindow) {
    load();
    key("Startfrm", Qt::Key_Escape);
    EXPECT_TRUE(shown("Startfrm"));
    EXPECT_TRUE(ends.empty());
    request_close("Startfrm");
    EXPECT_EQ(ends, std::vector{0});
    click("Startfrm/Starta");
    settle();
    key("MFrm", Qt::Key_Escape);
    EXPECT_TRUE(shown("MFrm"));
    world->heard();
    request_close("MFrm");
    EXPECT_EQ(world->heard(), "s1");
    EXPECT_TRUE(shown("Slut"));
    EXPECT_TRUE(shown("MFrm"));
    when_shown("Startfrm", [&] {
        request_close("Startfrm");
        EXPECT_EQ(ends, (std::vector{0, 0})) << "also when it is shown modally";
        click("Startfrm/Starta");
    });
    key("MFrm", Qt::Key_F2);
    when_shown("frmOm", [&] {
        key("frmOm", Qt::Key_Escape);
        EXPECT_TRUE(shown("frmOm"));
        world->heard();
        key("frmOm", Qt::Key_Tab);
        key("frmOm", Qt::Key_Return);
        EXPECT_EQ(world->heard(), "s1") << "Klar has the focus";
    });
    click("mnuOm");
    EXPECT_EQ(ends.size(), 2U);
}

}  // namespace
}  // namespace brusbo::test
