// Games played with the mouse: what a click does, and what the window then shows.

#include <QApplication>
#include <QLineEdit>

#include "tests/windows/stage.h"

namespace brusbo::test {
namespace {

class Play : public Stage {};

TEST_F(Play, AFullTurn) {
    start();
    std::vector<int> lefts;
    std::string faces;
    world->at_pause = [&](int) {
        lefts.push_back(at("Tärning").x());
        faces += std::to_string(static_cast<int>(*as<PictureButton>("Tärning").picture()) -
                                static_cast<int>(Picture::die_1) + 1);
    };
    // Places of 450 + floor(r * 1230) twips, 15 to the pixel; faces floor(6r + 1).
    for (const float r :
         {0.0F, 0.0F, 0.5F, 0.2F, 0.99999F, 0.4F, 0.25F, 0.6F, 0.75F, 0.8F, 0.1F, 0.5F})
        world->random_values.push_back(r);
    for (const Qt::MouseButton other : {Qt::RightButton, Qt::MiddleButton, Qt::LeftButton}) {
        EXPECT_EQ(world->heard(), "") << "the left button alone clicks";
        click("Tärning", other);
        settle();
    }
    EXPECT_EQ(lefts, (std::vector{30, 71, 112, 50, 91, 38}));
    EXPECT_EQ(faces, "123454");
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
    EXPECT_EQ(text("labVisa_tur"), "Blås tur!");
    EXPECT_EQ(text("labMeddelande"), "Slå genom att klicka på tärningen.");
    EXPECT_EQ(difference(), "");
}

TEST_F(Play, AClickInAPosition) {
    const char* const again = "Eftersom du slog 6 får du slå igen!";
    const struct {
        const char *own, *others;
        int face;
        const char *clicked, *heard, *own_after, *others_after;
        const char* message;  ///< how it begins
    } rows[] = {
        {"0 0 0 0", "0 0 0 0", 1, "butEn_pjäs", "s1 s2", "0 0 0 1", "0 0 0 0", "Du slog 1"},
        {"0 0 0 0", "0 0 0 0", 6, "butEn_pjäs", "s1 s2 s2 s2 s2 s2 s2", "0 0 0 6", "0 0 0 0",
         again},
        {"0 0 0 0", "0 0 0 0", 6, "butTvå_pjäser", "s1 s2 s2", "0 0 1 1", "0 0 0 0", "Du slog 6"},
        {"5 0 0 0", "38 38 37 0", 3, "Pjäs(0)", "s1 s2 s2 s2", "8 0 0 0", "0 0 37 0",
         "Du knuffade just hem"},
        {"5 7 0 0", "0 0 0 0", 3, "Pjäs(0)", "s1", "5 7 0 0", "0 0 0 0",
         "Du kan inte flytta pjäsen"},
        {"43 0 0 0", "0 0 0 0", 5, "Pjäs(0)", "s1 s2 s2 s2 s2 s2", "42 0 0 0", "0 0 0 0",
         "Du studsade"},
        {"42 0 3 0", "0 0 0 0", 3, "Pjäs(0)", "s1 s2 s2 s2", "55 0 3 0", "0 0 0 0",
         "Grattis, en till"},
        {"39 0 0 0", "0 0 0 0", 6, "Pjäs(0)", "s1 s2 s2 s2 s2 s2 s2", "55 0 0 0", "0 0 0 0", again},
        {"5 0 0 0", "5 0 0 0", 2, "Pjäs(4)", "s1", "5 0 0 0", "5 0 0 0", "Du slog 2"},
        {"5 0 0 0", "0 0 0 0", 2, "Pjäs(1)", "s1 beep", "5 0 0 0", "0 0 0 0", "Du slog 2"},
        {"5 5 5 0", "0 0 0 0", 2, "Pjäs(0)", "s1 s2 s2", "5 5 7 0", "0 0 0 0", "Du slog 2"},
        {"5 5 0 0", "0 0 0 0", 3, "Plus(1)", "s1 s2 s2 s2", "5 8 0 0", "0 0 0 0", "Du slog 3"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.own) + " by " + std::to_string(row.face));
        start();
        place(1, row.own);
        place(2, row.others);
        throw_die(row.face);
        world->heard();
        click(row.clicked);
        settle();
        EXPECT_EQ(world->heard(), row.heard);
        EXPECT_EQ(squares(1), row.own_after);
        EXPECT_EQ(squares(2), row.others_after);
        EXPECT_TRUE(text("labMeddelande").starts_with(row.message)) << text("labMeddelande");
        EXPECT_EQ(Tärning_enabled, row.message == again);
        EXPECT_EQ(difference(), "");
    }
}

TEST_F(Play, FourPlayersAreMarkedInTheirColours) {
    start(4);
    const QPointF middles[] = {{69, 69}, {307, 69}, {307, 307}, {69, 307}};
    const QRgb colours[] = {0xFF800000, 0xFF000080, 0xFF008000, 0xFFC0C000};
    for (int turn = 0; turn < 5; ++turn) {
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
    /// Player 2 of three wins; `answer` to the winner window starts a new game.
    void play(const std::function<void()>& answer) {
        start(3);
        pass_to(2);
        place(1, "12 12 0 55");
        place(3, "1 0 0 0");
        win([&] {
            EXPECT_EQ(world->heard(), "s1 s2");
            EXPECT_EQ(text("Grattis/labVisa_vinnare"), "Blå har vunnit!");
            std::string counts;
            for (int i = 0; i < 4; ++i) counts += text(numbered("Grattis/lbResultat", i)) + ";";
            EXPECT_EQ(counts, "1;4;0;;");
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
        EXPECT_TRUE(shown("MFrm") && !shown("Grattis") && !shown("Startfrm") && !shown("Slut"));
        EXPECT_EQ(QApplication::activeWindow(), window("MFrm"));
        for (int p = 1; p <= 4; ++p) EXPECT_EQ(squares(p), "0 0 0 0");
        EXPECT_EQ(Aktuell_spelare, 1);
        EXPECT_TRUE(Tärning_enabled);
        EXPECT_EQ(text("labMeddelande"), "Slå genom att klicka på tärningen.")
            << "nothing of the winning move follows";
        EXPECT_EQ(difference(), "");
        throw_die(6);
        EXPECT_TRUE(visible("butTvå_pjäser")) << "the game goes on";
    }
};

TEST_F(Win, ThenTheEndOrAQuickNewGame) {
    play([&] {
        click("Grattis/Avsluta");
        EXPECT_EQ(ends, std::vector{0});
        click("Grattis/butNytt_snabbt");
    });
    EXPECT_EQ(Antal_spelare, 3);
    EXPECT_EQ(world->heard(), "s3");
}

TEST_F(Win, ThenANewGameWithOtherPlayers) {
    play([&] {
        when_shown("Startfrm", [&] {
            EXPECT_TRUE(shown("Grattis")) << "the start window comes over it";
            EXPECT_TRUE(checked("Startfrm/AntSpelare(2)"));
            click("Startfrm/AntSpelare(1)");
            at("Startfrm/Namn(0)").setFocus();
            as<QLineEdit>("Startfrm/Namn(0)").selectAll();
            for (const Qt::Key letter : {Qt::Key_L, Qt::Key_A, Qt::Key_R, Qt::Key_S})
                key("Startfrm", letter);
            click("Startfrm/Starta");
        });
        click("Grattis/butNytt_spel");
    });
    EXPECT_EQ(Antal_spelare, 2);
    EXPECT_EQ(text("labVisa_tur"), "lars tur!");
}

}  // namespace
}  // namespace brusbo::test
