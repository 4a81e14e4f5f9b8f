// The main window's own title bar, its menu, the about and farewell windows, keys and close
// requests everywhere.

#include <QApplication>
#include <QMenu>
#include <QTest>

#include "tests/windows/stage.h"

namespace brusbo::test {
namespace {

class Chrome : public Stage {
   protected:
    /// The picture buttons that are lit.
    static std::string lit() {
        std::string names;
        for (const auto& [name, light] : {std::pair("mnuArkiv", Picture::arkiv_1),
                                          {"mnuOm", Picture::om_1},
                                          {"butMini", Picture::minimise_1},
                                          {"butAvsluta", Picture::close_1}})
            if (as<PictureButton>(name).picture() == light) names += name;
        return names;
    }

    static void choose(const char* item) {
        auto& menu = dynamic_cast<QMenu&>(*QApplication::activePopupWidget());
        for (QAction* action : menu.actions())
            if (action->objectName() == item)
                QTest::mouseClick(menu.windowHandle(), Qt::LeftButton, {},
                                  menu.actionGeometry(action).center());
    }
};

TEST_F(Chrome, HoverLightsUpAndSoundsOnceBetweenInclusiveBounds) {
    start();
    for (const std::string name : {"mnuArkiv", "mnuOm", "butMini", "butAvsluta"}) {
        const QRect box(in_window(name, QPoint()), at(name).size());
        const QPoint beyond = box.topLeft() + QPoint(box.width(), box.height());
        world->at_sound = [&] { EXPECT_EQ(lit(), name) << "the picture comes before the sound"; };
        const struct {
            QPoint place;
            const char *purpose, *heard;
            bool lights;
        } steps[] = {
            {box.center(), "entering", "s2", true},
            {box.topLeft(), "inside", "", true},
            {{beyond.x(), box.top() + 1}, "one beyond the right edge", "", true},
            {{box.left() + 1, beyond.y()}, "one beyond the lower edge", "", true},
            {{beyond.x() + 1, box.top() + 1}, "two beyond the right edge", "", false},
            {box.center(), "again", "s2", true},
            {{box.left() - 1, box.top() + 1}, "one left of it", "", false},
            {box.center(), "and again", "s2", true},
            {{box.left() + 1, box.top() - 1}, "one above it", "", false},
            {box.bottomRight(), "from below", "s2", true},
            {{box.left() + 1, beyond.y() + 1}, "two beyond the lower edge", "", false},
            {{beyond.x(), box.top() + 1}, "the edge does not light it", "", false},
        };
        for (const auto& step : steps) {
            hover(step.place);
            EXPECT_EQ(world->heard(), step.heard) << name << ", " << step.purpose;
            EXPECT_EQ(lit(), step.lights ? name : "") << step.purpose;
        }
    }
    // The first movement on another button belongs to the lit one.
    world->at_sound = [] {};
    std::string seen;
    for (const QPoint place : {QPoint(30, 15), {80, 20}, {82, 20}, {300, 300}}) {
        hover(place);
        seen += lit() + " " + world->heard() + "; ";
    }
    EXPECT_EQ(seen, "mnuArkiv s2;  ; mnuOm s2;  ; ");
}

TEST_F(Chrome, EveryPictureIsNormalAfterwardsButTheCloseButtons) {
    start();
    const auto about = [&](const std::function<void()>& act) { when_shown("frmOm", act); };
    const struct {
        std::string name;
        std::function<void()> meanwhile;
        const char *heard, *lit;
    } rows[] = {
        {"mnuArkiv", [&] { in_menu([] { key("MFrm", Qt::Key_Escape); }); }, "s2 s1", ""},
        {"mnuArkiv", [&] { in_menu([] { click("Picture1"); }); }, "s2 s1", ""},
        {"mnuArkiv", [&] { in_menu([] { press_accessibly("mnuArkiv"); }); }, "s2 s1 s1", ""},
        {"mnuOm", [&] { about([] { click("frmOm/Klar"); }); }, "s2 s1 s1", ""},
        {"mnuOm", [&] { about([] { request_close("frmOm"); }); }, "s2 s1", ""},
        {"butMini", [] {}, "s2 s1", ""},
        {"butAvsluta", [] {}, "s2 s1", "butAvsluta"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        hover({300, 300});
        hover(in_window(row.name, {5, 5}));
        EXPECT_EQ(lit(), row.name);
        row.meanwhile();
        click(row.name);
        settle();
        EXPECT_EQ(world->heard(), row.heard);
        EXPECT_EQ(lit(), row.lit);
        EXPECT_EQ(window("MFrm")->isMinimized(), row.name == "butMini");
        window("MFrm")->showNormal();
        EXPECT_EQ(difference(), "");
    }
}

TEST_F(Chrome, MenuItems) {
    start();
    const struct {
        std::string item;
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
        place(1, "7 0 0 55");
        in_menu([&] {
            row.meanwhile();
            if (QApplication::activePopupWidget() != nullptr) choose(row.item.c_str());
        });
        click("mnuArkiv");
        settle();
        EXPECT_EQ(world->heard(), row.heard);
        EXPECT_EQ(squares(1), row.squares_after);
        EXPECT_EQ(difference(), "");
        EXPECT_EQ(shown("Slut"), row.item == "mnuAvsluta");
        if (shown("Slut")) window("Slut")->hide();
        hover({300, 300});
    }
    EXPECT_TRUE(ends.empty());
}

TEST_F(Chrome, F2) {
    start();
    const struct {
        const char* purpose;
        std::function<void()> press;
        const char* heard;
    } rows[] = {
        {"in the main window", [] { key("MFrm", Qt::Key_F2); }, "s1"},
        {"in the menu",
         [&] {
             in_menu([] { key("MFrm", Qt::Key_F2); });
             click("mnuArkiv");
         },
         "s2 s1 s1"},
        {"during a throw",
         [&] {
             world->at_pause = [&](int) {
                 if (world->pauses % 6 == 2) key("MFrm", Qt::Key_F2);
                 EXPECT_EQ(squares(1), "7 0 0 0") << "not during a throw";
             };
             click("Tärning");
         },
         "s3 s1"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.purpose);
        place(1, "7 0 0 0");
        when_shown("Startfrm", [&] {
            EXPECT_EQ(squares(1), "0 0 0 0");
            key("Startfrm", Qt::Key_F2);
            click("Startfrm/Starta");
        });
        row.press();
        settle();
        EXPECT_EQ(world->heard(), row.heard);
        EXPECT_EQ(difference(), "");
    }
    world->at_pause = [](int) {};
    place(1, "7 0 0 0");
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
        {{30, 18}, Qt::RightButton, "on a picture button", false},
        {{400, 100}, Qt::LeftButton, "on the board", false},
        {{400, 18}, Qt::LeftButton, "where the hidden count is", true},
        {{400, 18}, Qt::RightButton, "on the visible count", false},
    };
    for (const auto& row : rows) {
        if (std::string(row.purpose) == "on the visible count") throw_die(2);
        const QPoint before = window("MFrm")->pos();
        drag("MFrm", row.button, row.place, {30, -20});
        hover(row.place + QPoint(40, 40));  // let go
        EXPECT_EQ(window("MFrm")->pos() - before, row.moves ? QPoint(30, -20) : QPoint())
            << row.purpose;
    }
}

TEST_F(Chrome, FarewellWindow) {
    start();
    click("butAvsluta");
    throw_die(4);
    EXPECT_TRUE(visible("butNästa")) << "the game goes on beside it";
    QWidget* const farewell = window("Slut");
    click("butAvsluta");
    EXPECT_EQ(window("Slut"), farewell);
    EXPECT_EQ(QApplication::activeWindow(), farewell);
    const QRect stands = farewell->geometry(), text = at("Slut/Text").geometry();
    drag("Slut", Qt::LeftButton, {311, 100}, {30, 5});
    EXPECT_EQ(farewell->geometry(), stands.adjusted(0, 0, 30, 0));
    drag("Slut", Qt::LeftButton, {1, 1}, {-10, -20});
    EXPECT_EQ(farewell->geometry(), stands.adjusted(-10, -20, 30, 0));
    EXPECT_EQ(at("Slut/Text").geometry(), text);
    world->heard();
    key("Slut", Qt::Key_Escape);
    request_close("Slut");
    EXPECT_TRUE(shown("Slut") && ends.empty());
    click("Slut/Stäng");
    EXPECT_EQ(world->heard(), "s1");
    EXPECT_EQ(ends, std::vector{0});
}

TEST_F(Chrome, EscapeAndCloseRequests) {
    load();
    key("Startfrm", Qt::Key_Escape);
    EXPECT_TRUE(shown("Startfrm") && ends.empty());
    request_close("Startfrm");
    EXPECT_EQ(ends, std::vector{0});
    click("Startfrm/Starta");
    settle();
    key("MFrm", Qt::Key_Escape);
    world->heard();
    request_close("MFrm");
    EXPECT_EQ(world->heard(), "s1");
    EXPECT_TRUE(shown("Slut") && shown("MFrm"));
    when_shown("Startfrm", [&] {
        request_close("Startfrm");
        EXPECT_EQ(ends.size(), 2U) << "also when it is shown modally";
        click("Startfrm/Starta");
    });
    key("MFrm", Qt::Key_F2);
    when_shown("frmOm", [&] {
        key("frmOm", Qt::Key_Escape);
        EXPECT_TRUE(shown("frmOm"));
        world->heard();
        key("frmOm", Qt::Key_Return);
        EXPECT_EQ(world->heard(), "s1") << "Klar has the focus";
    });
    click("mnuOm");
    EXPECT_EQ(ends.size(), 2U);
}

/// The leak sanitizer looks when the program ends.
TEST_F(Chrome, EveryWindowTenTimesLeavesNothingBehind) {
    start();
    qsizetype widgets = 0;
    for (int round = 1; round <= 10; ++round) {
        when_shown("frmOm", [] { click("frmOm/Klar"); });
        click("mnuOm");
        in_menu([] { key("MFrm", Qt::Key_Escape); });
        click("mnuArkiv");
        click("butAvsluta");
        ASSERT_TRUE(shown("Slut"));
        window("Slut")->hide();
        win([&] {
            when_shown("Startfrm", [] { click("Startfrm/Starta"); });
            click("Grattis/butNytt_spel");
        });
        win([] { click("Grattis/butNytt_snabbt"); });
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (round == 1) widgets = QApplication::allWidgets().size();
    }
    EXPECT_EQ(QApplication::allWidgets().size(), widgets);
    EXPECT_EQ(world->winners, 20);
}

}  // namespace
}  // namespace brusbo::test
