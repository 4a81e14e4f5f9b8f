// Games played with the mouse: what a click does, and what the window then shows.

#include <QLineEdit>
#include <QTest>

#include "tests/windows/stage.h"

namespace brusbo::test {
namespace {

class Play : public Stage {};

TEST_F(Play, AFullTurn) {
    start();
    EXPECT_EQ(text("labMeddelande"), "Slå genom att klicka på tärnningen.");
    std::vector<int> lefts, shown_faces;
    world->at_pause = [&](int) {
        lefts.push_back(at("Tärning").x());
        shown_faces.push_back(
            static_cast<int>(*dynamic_cast<PictureButton&>(at("Tärning")).picture()) -
            static_cast<int>(Picture::die_1) + 1);
    };
    // Places of 450 + floor(r * 1230) twips, 15 to the pixel; faces floor(6r + 1).
    for (const float r :
         {0.0F, 0.0F, 0.5F, 0.2F, 0.99999F, 0.4F, 0.25F, 0.6F, 0.75F, 0.8F, 0.1F, 0.5F})
        world->random_values.push_back(r);
    click("Tärning");
    settle();
    EXPECT_EQ(lefts, (std::vector{30, 71, 112, 50, 91, 38}));
    EXPECT_EQ(shown_faces, (std::vector{1, 2, 3, 4, 5, 4}));
    EXPECT_EQ(world->heard(), "s3");
    EXPECT_EQ(text("labMeddelande"),
              "Du slog 4. Du kan inte flytta någon pjäs för alla står i boet. För att flytta ut "
              "någon på spelplanen måste du slå 1 eller 6.");
    EXPECT_TRUE(at("butNästa").hasFocus());
    EXPECT_TRUE(visible("labPjäser_klara"));
    EXPECT_EQ(difference(), "");
    click("Tärning");
    EXPECT_EQ(world->heard(), "") << "no second throw";
    click("butNästa");
    EXPECT_EQ(world->heard(), "s1");
    EXPECT_EQ(Aktuell_spelare, 2);
    EXPECT_EQ(text("labVisa_tur"), "Blås tur!");
    EXPECT_EQ(text("labMeddelande"), "Slå genom att klicka på tärningen.");
    EXPECT_EQ(difference(), "");
}

/// One click in a position, after a throw of player 1 in a game of two.
struct ClickRow {
    const char* purpose;
    std::array<int, 4> own, others;
    int face;
    const char* clicked;
    const char* heard;
    const char* own_after;
    const char* others_after;
    const char* message;  ///< how it begins
    bool throws_again = false;
};

void PrintTo(const ClickRow& row, std::ostream* out) { *out << row.purpose; }

class PlayClick : public Stage, public testing::WithParamInterface<ClickRow> {};

TEST_P(PlayClick, DoesWhatTheRulesSay) {
    const ClickRow& row = GetParam();
    start();
    place(1, row.own);
    place(2, row.others);
    throw_die(row.face);
    world->heard();
    // What each pause shows is the piece on its next square.
    std::vector<std::string> seen;
    world->at_pause = [&](int) { seen.push_back(squares(1)); };
    click(row.clicked);
    settle();
    EXPECT_EQ(world->heard(), row.heard);
    EXPECT_EQ(squares(1), row.own_after);
    EXPECT_EQ(squares(2), row.others_after);
    EXPECT_EQ(text("labMeddelande").substr(0, std::string(row.message).size()), row.message);
    EXPECT_EQ(Tärning_enabled, row.throws_again);
    EXPECT_EQ(difference(), "");
    EXPECT_EQ(broken_invariant(), nullptr);
}

constexpr const char* again = "Eftersom du slog 6 får du slå igen!";

INSTANTIATE_TEST_SUITE_P(
    Rows, PlayClick,
    testing::Values(
        ClickRow{
            "out with a one", {}, {}, 1, "butEn_pjäs", "s1 s2", "0 0 0 1", "0 0 0 0", "Du slog 1"},
        ClickRow{"out with a six, and again",
                 {},
                 {},
                 6,
                 "butEn_pjäs",
                 "s1 s2 s2 s2 s2 s2 s2",
                 "0 0 0 6",
                 "0 0 0 0",
                 again,
                 true},
        ClickRow{"two pieces out share a square",
                 {},
                 {},
                 6,
                 "butTvå_pjäser",
                 "s1 s2 s2",
                 "0 0 1 1",
                 "0 0 0 0",
                 "Du slog 6"},
        ClickRow{"a walk that knocks two home",
                 {5, 0, 0, 0},
                 {38, 38, 37, 0},
                 3,
                 "Pjäs(0)",
                 "s1 s2 s2 s2",
                 "8 0 0 0",
                 "0 0 37 0",
                 "Du knuffade just hem"},
        ClickRow{"an own piece in the way",
                 {5, 7, 0, 0},
                 {},
                 3,
                 "Pjäs(0)",
                 "s1",
                 "5 7 0 0",
                 "0 0 0 0",
                 "Du kan inte flytta pjäsen"},
        ClickRow{"an own piece on the target",
                 {5, 8, 0, 0},
                 {},
                 3,
                 "Pjäs(0)",
                 "s1 s2 s2 s2",
                 "8 8 0 0",
                 "0 0 0 0",
                 "Du slog 3"},
        ClickRow{"a bounce",
                 {43, 0, 0, 0},
                 {},
                 5,
                 "Pjäs(0)",
                 "s1 s2 s2 s2 s2 s2",
                 "42 0 0 0",
                 "0 0 0 0",
                 "Du studsade"},
        ClickRow{"a bounce that knocks",
                 {44, 0, 0, 0},
                 {30, 0, 0, 0},
                 6,
                 "Pjäs(0)",
                 "s1 s2 s2 s2 s2 s2 s2",
                 "40 0 0 0",
                 "0 0 0 0",
                 again,
                 true},
        ClickRow{"a piece comes home",
                 {42, 0, 3, 0},
                 {},
                 3,
                 "Pjäs(0)",
                 "s1 s2 s2 s2",
                 "55 0 3 0",
                 "0 0 0 0",
                 "Grattis, en till"},
        ClickRow{"a piece comes home with a six",
                 {39, 0, 0, 0},
                 {},
                 6,
                 "Pjäs(0)",
                 "s1 s2 s2 s2 s2 s2 s2",
                 "55 0 0 0",
                 "0 0 0 0",
                 again,
                 true},
        ClickRow{"another player's piece",
                 {5, 0, 0, 0},
                 {5, 0, 0, 0},
                 2,
                 "Pjäs(4)",
                 "s1",
                 "5 0 0 0",
                 "5 0 0 0",
                 "Du slog 2"},
        ClickRow{"a piece in the nest",
                 {5, 0, 0, 0},
                 {},
                 2,
                 "Pjäs(1)",
                 "s1 beep",
                 "5 0 0 0",
                 "0 0 0 0",
                 "Du slog 2"},
        ClickRow{"the upper piece of a stack",
                 {5, 5, 5, 0},
                 {},
                 2,
                 "Pjäs(0)",
                 "s1 s2 s2",
                 "5 5 7 0",
                 "0 0 0 0",
                 "Du slog 2"}));

TEST_F(Play, OnlyTheLeftButtonClicks) {
    start();
    for (const Qt::MouseButton other : {Qt::RightButton, Qt::MiddleButton}) {
        click("Tärning", other);
        click("Pjäs(0)", other);
    }
    EXPECT_EQ(world->heard(), "");
    EXPECT_TRUE(Tärning_enabled);
}

TEST_F(Play, AMarkerLetsClicksThroughToThePieceBelow) {
    start();
    place(1, {5, 5, 0, 0});
    throw_die(3);
    ASSERT_TRUE(visible("Plus(1)"));
    click_at("MFrm", at("Plus(1)").mapTo(window("MFrm"), QPoint(4, 4)));
    settle();
    EXPECT_EQ(squares(1), "5 8 0 0");
}

TEST_F(Play, FourPlayersAreMarkedInTheirColours) {
    start(4);
    const QPointF middles[] = {{69, 69}, {307, 69}, {307, 307}, {69, 307}};
    const QRgb colours[] = {0xFF800000, 0xFF000080, 0xFF008000, 0xFFC0C000};
    for (int turn = 0; turn < 8; ++turn) {
        for (int p = 0; p < 4; ++p) {
            const QColor seen = pixel(grab("MFrm"), QPointF(190, 36) + middles[p]);
            EXPECT_EQ(seen == QColor(colours[p]), p == turn % 4) << "turn " << turn << ", " << p;
        }
        throw_die(2);
        click("butNästa");
        EXPECT_EQ(difference(), "");
    }
}

class Win : public Stage {
   protected:
    /// Player 2 of three wins; `answer` is given to the winner window.
    void win(const std::function<void()>& answer) {
        start(3);
        almost_won(2);
        place(1, {12, 12, 0, 55});
        place(3, {1, 0, 0, 0});
        throw_die(1);
        world->heard();
        when_shown("Grattis", [&] {
            EXPECT_EQ(world->heard(), "s1 s2");
            EXPECT_EQ(text("Grattis/labVisa_vinnare"), "Blå har vunnit!");
            for (const auto& [row, count] :
                 {std::pair("0", "1"), {"1", "4"}, {"2", "0"}, {"3", ""}})
                EXPECT_EQ(text("Grattis/lbResultat(" + std::string(row) + ")"), count);
            click("Tärning");
            key("MFrm", Qt::Key_F2);
            key("Grattis", Qt::Key_F2);
            key("Grattis", Qt::Key_Escape);
            request_close("Grattis");
            EXPECT_TRUE(shown("Grattis")) << "neither key nor request closes it";
            EXPECT_FALSE(shown("Startfrm"));
            EXPECT_EQ(world->heard(), "");
            answer();
        });
        click("Pjäs(6)");
        settle();
        EXPECT_EQ(broken_invariant(), nullptr);
        EXPECT_EQ(difference(), "");
    }

    void expect_new_game() {
        EXPECT_FALSE(shown("Grattis"));
        EXPECT_FALSE(shown("Startfrm"));
        EXPECT_TRUE(shown("MFrm"));
        EXPECT_EQ(QApplication::activeWindow(), window("MFrm"));
        for (int p = 1; p <= 4; ++p) EXPECT_EQ(squares(p), "0 0 0 0");
        EXPECT_EQ(Aktuell_spelare, 1);
        EXPECT_TRUE(Tärning_enabled);
        EXPECT_EQ(text("labMeddelande"), "Slå genom att klicka på tärningen.")
            << "nothing of the winning move follows";
        EXPECT_FALSE(visible("butNästa"));
        EXPECT_TRUE(visible("Pjäs(6)"));
        throw_die(6);
        EXPECT_TRUE(visible("butTvå_pjäser")) << "the game goes on";
    }
};

TEST_F(Win, ThenAQuickNewGame) {
    win([] { click("Grattis/butNytt_snabbt"); });
    EXPECT_EQ(Antal_spelare, 3);
    EXPECT_EQ(world->heard(), "");
    expect_new_game();
}

TEST_F(Win, ThenANewGameWithOtherPlayers) {
    win([&] {
        when_shown("Startfrm", [&] {
            EXPECT_TRUE(shown("Grattis")) << "the start window comes over it";
            EXPECT_TRUE(at("Startfrm/AntSpelare(2)").property("checked").toBool());
            click("Startfrm/AntSpelare(1)");
            at("Startfrm/Namn(0)").setFocus();
            dynamic_cast<QLineEdit&>(at("Startfrm/Namn(0)")).selectAll();
            for (const Qt::Key letter : {Qt::Key_L, Qt::Key_A, Qt::Key_R, Qt::Key_S})
                key("Startfrm", letter);
            click("Startfrm/Starta");
        });
        click("Grattis/butNytt_spel");
    });
    EXPECT_EQ(Antal_spelare, 2);
    EXPECT_EQ(Spelare[1].Namn, "lars");
    EXPECT_EQ(text("labVisa_tur"), "lars tur!");
    expect_new_game();
}

TEST_F(Win, ThenTheEnd) {
    win([&] {
        click("Grattis/Avsluta");
        EXPECT_EQ(ends, std::vector{0});
        EXPECT_FALSE(shown("Slut"));
        click("Grattis/butNytt_snabbt");
    });
}

}  // namespace
}  // namespace brusbo::test
