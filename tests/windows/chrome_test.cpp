// The main window's own title bar, its menu, the about and farewell windows, keys and close
// requests everywhere.

#include <QApplication>
#include <QMenu>
#include <QPointer>
#include <QTest>

#include "tests/windows/stage.h"

namespace brusbo::test {
namespace {

class Chrome : public Stage {
   protected:
    /// The picture buttons that are lit.
    static std::string lit() {
        std::string names;
        for (const auto& [name, light] : {std::pair("mnuArkiv", brusbo::picture("arkiv-1")),
                                          {"mnuOm", brusbo::picture("om-1")},
                                          {"butMini", brusbo::picture("minimise-1")},
                                          {"butAvsluta", brusbo::picture("close-1")}})
            if (picture(at(name)) == light) names += name;
        return names;
    }

    static QRect box_of(const std::string& element) {
        return {at(element).mapTo(at(element).window(), QPoint()), at(element).size()};
    }

    /// Chooses an item of the open menu, or closes it by a key or by its button.
    static void answer_menu(const std::string& answer) {
        if (answer == "Escape") return key("MFrm", Qt::Key_Escape);
        if (answer == "mnuArkiv") return press_accessibly("mnuArkiv");
        auto& menu = dynamic_cast<QMenu&>(*QApplication::activePopupWidget());
        const QRect item = menu.actionGeometry(menu.findChild<QAction*>(answer.c_str()));
        QTest::mouseClick(menu.windowHandle(), Qt::LeftButton, {}, item.center());
    }

    static void drag(const std::string& name, Qt::MouseButton button, QPoint from, QPoint by) {
        QWidget& dragged = *window(name);
        const QPoint to = dragged.mapToGlobal(from + by);
        QTest::mousePress(dragged.windowHandle(), button, {}, from);
        QTest::mouseMove(dragged.windowHandle(), from + by / 2);
        // The window may have gone along.
        QTest::mouseMove(dragged.windowHandle(), dragged.mapFromGlobal(to));
        QTest::mouseRelease(dragged.windowHandle(), button, {}, dragged.mapFromGlobal(to));
    }
};

TEST_F(Chrome, HoverLightsUpAndSoundsOnceBetweenInclusiveBounds) {
    start();
    for (const std::string name : {"mnuArkiv", "mnuOm", "butMini", "butAvsluta"}) {
        world->at_sound = [&] { EXPECT_EQ(lit(), name) << "the picture comes before the sound"; };
        const QRect box = box_of(name);
        const QPoint middle = box.center(), beyond = box.bottomRight() + QPoint(1, 1);
        const struct {
            QPoint inside, outside;
        } edges[] = {{{beyond.x(), middle.y()}, {beyond.x() + 1, middle.y()}},
                     {{middle.x(), beyond.y()}, {middle.x(), beyond.y() + 1}},
                     {{box.left(), middle.y()}, {box.left() - 1, middle.y()}},
                     {{middle.x(), box.top()}, {middle.x(), box.top() - 1}}};
        for (const auto& edge : edges) {
            for (const QPoint place : {middle, edge.inside, middle}) {
                hover(place);
                EXPECT_EQ(lit(), name);
            }
            EXPECT_EQ(world->heard(), "s2");
            hover(edge.outside);
            EXPECT_EQ(lit() + world->heard(), "");
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

TEST_F(Chrome, AClickOnAPictureButtonLeavesItNormalButForTheFarewell) {
    start();
    const struct {
        std::string button, answer;
        std::string outcome;  ///< what is heard and lit, the squares of player 1, windows
    } rows[] = {
        {"mnuArkiv", "Escape", "s2 s1;; 7 0 0 55"},
        {"mnuArkiv", "mnuArkiv", "s2 s1 s1;; 7 0 0 55"},
        {"mnuArkiv", "mnuAvsluta", "s2 s1 s1;; 7 0 0 55 Slut"},
        {"mnuArkiv", "mnuNytt_snabbt", "s2 s1;; 0 0 0 0"},
        {"mnuArkiv", "mnuNytt_spel", "s2 s1 s1;; 0 0 0 0"},
        {"mnuOm", "Klar", "s2 s1 s1;; 7 0 0 55"},
        {"mnuOm", "close box", "s2 s1;; 7 0 0 55"},
        {"butMini", "", "s2 s1;; 7 0 0 55 minimised"},
        {"butAvsluta", "", "s2 s1;butAvsluta; 7 0 0 55 Slut"},
    };
    for (const auto& [button, given, outcome] : rows) {
        if (button == "mnuArkiv") in_menu([item = given] { answer_menu(item); });
        if (given == "mnuNytt_spel") answer("Startfrm/Starta");
        if (given == "Klar") answer("frmOm/Klar");
        if (given == "close box") when_shown("frmOm", [] { request_close("frmOm"); });
        place(1, "7 0 0 55");
        hover({300, 300});
        hover(box_of(button).center());
        const std::string heard = play(button);
        EXPECT_EQ(heard + ";" + lit() + "; " + squares(1) + (shown("Slut") ? " Slut" : "") +
                      (window("MFrm")->isMinimized() ? " minimised" : ""),
                  outcome);
        EXPECT_EQ(difference(), "");
        window("MFrm")->showNormal();
        if (shown("Slut")) window("Slut")->hide();
    }
    EXPECT_TRUE(ends.empty());
}

TEST_F(Chrome, F2AsksForANewGame) {
    start();
    const auto press = [](Qt::KeyboardModifiers held = {}) { key("MFrm", Qt::Key_F2, held); };
    world->at_pause = [&](int number) {
        if (number == 2) press();
        EXPECT_EQ(squares(1), "7 0 0 0") << "not during a throw";
    };
    for (const std::string during : {"", "mnuArkiv", "Tärning"}) {
        SCOPED_TRACE(during);
        place(1, "7 0 0 0");
        when_shown("Startfrm", [&] {
            EXPECT_EQ(squares(1), "0 0 0 0");
            key("Startfrm", Qt::Key_F2);
            click("Startfrm/Starta");
        });
        if (during.empty()) press();
        if (during == "mnuArkiv") in_menu([&] { press(); });
        EXPECT_EQ(play(during), during.empty() ? "s1" : during == "Tärning" ? "s3 s1" : "s2 s1 s1");
        EXPECT_EQ(difference(), "");
    }
    place(1, "7 0 0 0");
    for (const auto held : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}) press(held);
    when_shown("frmOm", [&] {
        press();
        key("frmOm", Qt::Key_F2);
        click("frmOm/Klar");
    });
    play("mnuOm");
    EXPECT_FALSE(shown("Startfrm")) << "not with other keys, not while a modal window is open";
    EXPECT_EQ(squares(1), "7 0 0 0");
}

TEST_F(Chrome, TheTitleBarMovesTheWindowWhereItIsUncovered) {
    start();
    play("2");  // shows the count
    const struct {
        QPoint place;
        Qt::MouseButton button;
        bool moves;
    } rows[] = {{{320, 5}, Qt::LeftButton, true},
                {{320, 30}, Qt::RightButton, true},
                {{30, 18}, Qt::RightButton, false},
                {{400, 18}, Qt::RightButton, false},
                {{400, 100}, Qt::LeftButton, false}};
    for (const auto& [place, button, moves] : rows) {
        const QPoint before = window("MFrm")->pos();
        drag("MFrm", button, place, {30, -20});
        hover(place + QPoint(40, 40));  // let go
        EXPECT_EQ(window("MFrm")->pos() - before, moves ? QPoint(30, -20) : QPoint()) << place.x();
    }
}

TEST_F(Chrome, TheFarewellWindowStaysBesideTheGameUntilItsButtonEndsIt) {
    start();
    play("butAvsluta 4");
    const QPointer<QWidget> farewell = window("Slut");
    play("butAvsluta");
    ASSERT_EQ(farewell, window("Slut")) << "it is brought up again, not made anew";
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
    EXPECT_EQ(ends.size(), 1U);
    play("Startfrm/Starta");
    key("MFrm", Qt::Key_Escape);
    request_close("MFrm");
    EXPECT_EQ(world->heard(), "s1");
    EXPECT_TRUE(shown("Slut") && shown("MFrm"));
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
        key("frmOm", Qt::Key_Return);
        EXPECT_EQ(world->heard(), "s1") << "Klar has the focus";
    });
    play("mnuOm");
    EXPECT_EQ(ends.size(), 2U);
}

/// The leak sanitizer looks when the program ends.
TEST_F(Chrome, EveryWindowTenTimesLeavesNothingBehind) {
    start();
    qsizetype widgets = 0;
    for (int round = 1; round <= 10; ++round) {
        answer("frmOm/Klar");
        in_menu([] { key("MFrm", Qt::Key_Escape); });
        play("mnuOm mnuArkiv butAvsluta");
        ASSERT_TRUE(shown("Slut"));
        window("Slut")->hide();
        win([&] {
            answer("Startfrm/Starta");
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
