// Input that arrives while an action runs: it waits, in order, whatever its source, and what it
// may do is judged when its turn comes.

#include <QApplication>
#include <QTest>

#include "tests/windows/stage.h"

namespace brusbo::test {
namespace {

class Input : public Stage {
   protected:
    struct Source {
        const char* name;
        std::function<void(const std::string& element)> press;
    };
    const std::vector<Source> sources = {
        {"mouse on the window", [](const auto& element) { click(element); }},
        {"mouse on the widget",
         [](const auto& element) { QTest::mouseClick(&at(element), Qt::LeftButton); }},
        {"accessibility", [](const auto& element) { press_accessibly(element); }},
        {"program", [](const auto& element) { as<QAbstractButton>(element).click(); }}};

    /// Clicks on an element, and runs `act` once, at the given pause of the action.
    void during(const std::string& clicked, int pause, const std::function<void()>& act) {
        const int number = world->pauses + pause;
        world->at_pause = [number, act](int now) {
            if (now == number) act();
        };
        click(clicked);
        settle();
    }
};

TEST_F(Input, IsJudgedAfterTheActionWhateverItsSource) {
    const struct {
        const char *own, *moves, *clicked;
        int pause;
        const char* pressed;  ///< during that pause
        int times;
        const char *heard, *own_after;
    } rows[] = {
        {"0 0 0 0", "", "Tärning", 2, "butNästa", 1, "s3 s1", "0 0 0 0"},
        {"0 0 0 0", "", "Tärning", 6, "Tärning", 2, "s3", "0 0 0 0"},
        {"5 0 0 0", "", "Tärning", 4, "Pjäs(0)", 1, "s3 s1 s2 s2 s2", "8 0 0 0"},
        {"5 9 0 0", "2", "Pjäs(0)", 1, "Pjäs(1)", 2, "s1 s2 s2 s1 s1", "7 9 0 0"},
    };
    start();
    for (const Source& source : sources)
        for (const auto& row : rows) {
            SCOPED_TRACE(std::string(row.pressed) + ", " + source.name);
            Nytt_snabbt();
            place(1, row.own);
            play(row.moves);
            if (*row.moves == 0) world->dice.script(3);
            during(row.clicked, row.pause, [&] {
                const std::string before = squares(1);
                for (int i = 0; i < row.times; ++i) source.press(row.pressed);
                EXPECT_EQ(squares(1), before);
                EXPECT_EQ(Aktuell_spelare, 1);
            });
            EXPECT_EQ(world->heard(), row.heard);
            EXPECT_EQ(squares(1), row.own_after);
            EXPECT_EQ(Aktuell_spelare, std::string(row.pressed) == "butNästa" ? 2 : 1);
            EXPECT_EQ(difference(), "");
        }
}

TEST_F(Input, OfAllSourcesInTheOrderOfItsArrival) {
    start();
    world->dice.script(3);
    world->dice.script(4);
    during("Tärning", 3, [&] {
        key("MFrm", Qt::Key_Space);  // goes to the button that gets the focus at the end
        click("Tärning");
        press_accessibly("butNästa");
        hover({30, 15});
        request_close("MFrm");
        EXPECT_EQ(world->heard(), "s3");
        EXPECT_FALSE(shown("Slut"));
    });
    EXPECT_EQ(world->heard(), "s1 s3 s1 s2 s1");
    EXPECT_EQ(Aktuell_spelare, 1);
    EXPECT_TRUE(shown("Slut"));
    EXPECT_EQ(difference(), "");
}

TEST_F(Input, OfTheWinningWalkDoesNotReachTheWinnerWindowsGame) {
    start();
    place(1, "55 55 43 55");
    play("2");
    when_shown("Grattis", [&] {
        settle();
        EXPECT_TRUE(shown("Grattis") && !shown("Startfrm") && !shown("Slut"));
        EXPECT_EQ(QApplication::activeWindow(), window("Grattis"));
        for (const Qt::Key pressed : {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Space})
            key("Grattis", pressed);
    });
    during("Pjäs(2)", 1, [&] {
        for (const Source& source : sources) {
            source.press("butNästa");
            source.press("Tärning");
        }
        key("MFrm", Qt::Key_F2);
        request_close("MFrm");
    });
    EXPECT_EQ(board_resets, 1U) << "Tab leads to the quick game";
    EXPECT_EQ(Aktuell_spelare, 1);
    EXPECT_TRUE(Tärning_enabled);
    EXPECT_EQ(difference(), "");
}

TEST_F(Input, AfterAChoiceInTheMenuWaitsForWhatWasChosen) {
    start();
    world->dice.script(3);
    world->dice.script(5);
    during("Tärning", 2, [&] {
        click("mnuArkiv");
        for (const Qt::Key pressed : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return})
            key("MFrm", pressed);
        click("Tärning");
    });
    EXPECT_EQ(board_resets, 1U);
    EXPECT_EQ(Senaste_slag, 5);
    EXPECT_FALSE(Tärning_enabled) << "the throw belongs to the new game";
    EXPECT_EQ(world->heard(), "s3 s2 s1 s3");
    EXPECT_EQ(difference(), "");
}

TEST_F(Input, AfterAModalWindowWaitsForTheActionThatShowedIt) {
    start();
    world->dice.script(3);
    during("Tärning", 2, [&] {
        press_accessibly("mnuOm");
        when_shown("frmOm", [&] {
            // Both at once, before the window's loop has noticed that it is over.
            as<QAbstractButton>("frmOm/Klar").click();
            EXPECT_TRUE(InputGate::instance().closed());
            press_accessibly("butNästa");
            EXPECT_EQ(Aktuell_spelare, 1);
        });
    });
    EXPECT_EQ(Aktuell_spelare, 2);
}

TEST_F(Input, ByAccessibilityDoesNoMoreThanAClick) {
    load();
    press_accessibly("mnuOm");
    EXPECT_FALSE(shown("frmOm")) << "its window is hidden";
    play("Startfrm/Starta 2");
    press_accessibly("Tärning");
    press_accessibly("butEn_pjäs");
    EXPECT_EQ(world->heard(), "") << "disabled, hidden";
    when_shown("frmOm", [&] {
        press_accessibly("butNästa");
        EXPECT_EQ(world->heard(), "s1") << "behind a modal window";
        press_accessibly("frmOm/Klar");
    });
    press_accessibly("mnuOm");
    settle();
    EXPECT_EQ(world->heard(), "s1");
    press_accessibly("butNästa");
    EXPECT_EQ(Aktuell_spelare, 2);
}

}  // namespace
}  // namespace brusbo::test
