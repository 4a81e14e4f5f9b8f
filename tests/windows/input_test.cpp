// Input that arrives while an action runs: it waits, in order, whatever its source, and what it
// may do is judged when its turn comes.

#include <QAbstractButton>
#include <QTest>

#include "tests/windows/stage.h"

namespace brusbo::test {
namespace {

/// The ways to press an element.
struct Source {
    const char* name;
    std::function<void(const std::string& element)> press;
};

class Input : public Stage, public testing::WithParamInterface<int> {
   protected:
    static std::vector<Source> sources() {
        return {
            {"mouse on the window", [](const std::string& element) { click(element); }},
            {"mouse on the widget",
             [](const std::string& element) { QTest::mouseClick(&at(element), Qt::LeftButton); }},
            {"accessibility", [](const std::string& element) { press_accessibly(element); }},
            {"program", [](const std::string& element) {
                 dynamic_cast<QAbstractButton&>(at(element)).click();
             }}};
    }

    Source source() const { return sources()[static_cast<std::size_t>(GetParam())]; }

    /// Runs `act` once, at the given pause of the action that comes.
    void during(int pause, std::function<void()> act) {
        const int number = world->pauses + pause;
        world->at_pause = [number, act = std::move(act)](int now) {
            if (now == number) act();
        };
    }
};

TEST_P(Input, TheNextPlayersButtonIsPressedBeforeItIsShown) {
    start();
    during(2, [&] {
        source().press("butNästa");
        EXPECT_EQ(Aktuell_spelare, 1);
    });
    script(3);
    click("Tärning");
    settle();
    EXPECT_EQ(Aktuell_spelare, 2) << source().name;
    EXPECT_EQ(world->heard(), "s3 s1");
    EXPECT_EQ(difference(), "");
}

TEST_P(Input, OneThrowOnlyHoweverOftenTheDieIsPressed) {
    start();
    for (const int pause : {1, 3, 6}) {
        during(pause, [&] {
            source().press("Tärning");
            source().press("Tärning");
        });
        const int pauses_before = world->pauses;
        script(2);
        click("Tärning");
        settle();
        EXPECT_EQ(world->pauses - pauses_before, 6) << source().name;
        EXPECT_EQ(world->heard(), "s3");
        click("butNästa");
        world->heard();
    }
}

TEST_P(Input, APieceIsJudgedAfterTheThrow) {
    start();
    place(1, {5, 0, 0, 0});
    during(4, [&] {
        source().press("Pjäs(0)");
        EXPECT_EQ(squares(1), "5 0 0 0");
    });
    script(4);
    click("Tärning");
    settle();
    EXPECT_EQ(squares(1), "9 0 0 0") << source().name;
    EXPECT_EQ(world->heard(), "s3 s1 s2 s2 s2 s2");
}

TEST_P(Input, APieceIsRefusedAfterTheWalk) {
    start();
    place(1, {5, 20, 0, 0});
    throw_die(3);
    world->heard();
    during(2, [&] {
        source().press("Pjäs(1)");
        source().press("Pjäs(2)");
    });
    click("Pjäs(0)");
    settle();
    EXPECT_EQ(squares(1), "8 20 0 0") << source().name;
    EXPECT_EQ(world->heard(), "s1 s2 s2 s2 s1 s1 beep");
    EXPECT_EQ(difference(), "");
}

TEST_P(Input, ANestButtonIsJudgedAfterTheThrow) {
    for (const int face : {5, 6}) {
        if (face == 5)
            start();
        else
            click("butNästa");
        during(5, [&] { source().press("butEn_pjäs"); });
        const int player = Aktuell_spelare;
        script(face);
        click("Tärning");
        settle();
        EXPECT_EQ(squares(player), face == 6 ? "0 0 0 6" : "0 0 0 0") << source().name;
        EXPECT_EQ(difference(), "");
    }
}

INSTANTIATE_TEST_SUITE_P(Sources, Input, testing::Range(0, 4));

class Waiting : public Input {};

TEST_F(Waiting, AllSourcesInTheOrderOfTheirArrival) {
    start();
    const auto all = sources();
    during(3, [&] {
        all[3].press("butNästa");
        all[0].press("Tärning");
        all[2].press("butNästa");
        key("MFrm", Qt::Key_F2);
        hover({30, 15});
        request_close("MFrm");
        EXPECT_FALSE(shown("Slut"));
        EXPECT_EQ(world->heard(), "s3");
    });
    script(3);
    script(4);
    when_shown("Startfrm", [&] {
        // Player 1's button, player 2's throw, player 2's button; then the new game.
        EXPECT_EQ(world->heard(), "s1 s3 s1");
        EXPECT_FALSE(shown("Slut"));
        click("Startfrm/Starta");
    });
    click("Tärning");
    settle();
    EXPECT_TRUE(world->random_values.empty()) << "two throws";
    EXPECT_EQ(broken_invariant(), nullptr);
    EXPECT_EQ(difference(), "");
}

TEST_F(Waiting, KeysGoWhereTheFocusIsWhenTheirTurnComes) {
    start();
    during(1, [] { key("MFrm", Qt::Key_Space); });
    script(2);
    click("Tärning");
    settle();
    EXPECT_EQ(Aktuell_spelare, 2) << "the button had got the focus";
}

TEST_F(Waiting, ACloseRequestAndAMovement) {
    start();
    during(2, [&] {
        hover({30, 15});
        request_close("MFrm");
        EXPECT_EQ(world->heard(), "s3");
    });
    script(2);
    click("Tärning");
    settle();
    EXPECT_EQ(world->heard(), "s2 s1");
    EXPECT_TRUE(shown("Slut"));
}

TEST_F(Waiting, NothingOfTheWinningWalkReachesTheWinnerWindowsGame) {
    start();
    place(1, {55, 55, 43, 55});
    throw_die(2);
    during(1, [&] {
        for (const Source& source : sources()) {
            source.press("butNästa");
            source.press("Tärning");
        }
        key("MFrm", Qt::Key_F2);
        request_close("MFrm");
    });
    when_shown("Grattis", [&] {
        settle();
        EXPECT_TRUE(shown("Grattis"));
        EXPECT_FALSE(shown("Startfrm"));
        EXPECT_FALSE(shown("Slut"));
        EXPECT_EQ(QApplication::activeWindow(), window("Grattis"));
        key("Grattis", Qt::Key_Tab);
        key("Grattis", Qt::Key_Tab);
        EXPECT_TRUE(at("Grattis/butNytt_snabbt").hasFocus());
        key("Grattis", Qt::Key_Space);
    });
    click("Pjäs(2)");
    settle();
    EXPECT_EQ(Aktuell_spelare, 1);
    EXPECT_TRUE(Tärning_enabled);
    EXPECT_EQ(difference(), "");
}

TEST_F(Waiting, WhatComesAfterAChoiceInTheMenuWaitsForWhatWasChosen) {
    start();
    during(2, [&] {
        click("mnuArkiv");
        for (const Qt::Key pressed : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return})
            key("MFrm", pressed);
        click("Tärning");
    });
    script(3);
    script(5);
    click("Tärning");
    settle();
    EXPECT_EQ(board_resets, 1U);
    EXPECT_EQ(Senaste_slag, 5);
    EXPECT_FALSE(Tärning_enabled) << "the throw belongs to the new game";
    EXPECT_EQ(world->heard(), "s3 s2 s1 s3");
    EXPECT_EQ(difference(), "");
}

TEST_F(Waiting, WhatComesAfterAModalWindowWaitsForTheActionThatShowedIt) {
    start();
    during(2, [&] {
        press_accessibly("mnuOm");
        when_shown("frmOm", [&] {
            // Both at once, before the window's loop has noticed that it is over.
            dynamic_cast<QAbstractButton&>(at("frmOm/Klar")).click();
            EXPECT_TRUE(InputGate::instance().closed());
            press_accessibly("butNästa");
            EXPECT_EQ(Aktuell_spelare, 1);
        });
    });
    script(3);
    click("Tärning");
    settle();
    EXPECT_EQ(Aktuell_spelare, 2);
}

TEST_F(Waiting, AccessibilityDoesNoMoreThanAClick) {
    load();
    press_accessibly("mnuOm");
    EXPECT_FALSE(shown("frmOm")) << "its window is hidden";
    click("Startfrm/Starta");
    settle();
    world->heard();
    press_accessibly("butNästa");
    press_accessibly("butEn_pjäs");
    EXPECT_EQ(world->heard(), "") << "hidden";
    throw_die(2);
    world->heard();
    press_accessibly("Tärning");
    EXPECT_EQ(world->heard(), "") << "disabled";
    when_shown("frmOm", [&] {
        world->heard();
        press_accessibly("butNästa");
        EXPECT_EQ(world->heard(), "") << "behind a modal window";
        press_accessibly("frmOm/Klar");
    });
    press_accessibly("mnuOm");
    settle();
    EXPECT_EQ(world->heard(), "s1");
    EXPECT_EQ(Aktuell_spelare, 1);
    press_accessibly("butNästa");
    EXPECT_EQ(Aktuell_spelare, 2);
}

}  // namespace
}  // namespace brusbo::test
