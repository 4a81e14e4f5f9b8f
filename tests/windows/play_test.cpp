// Games played with the mouse: what a click does, and what the window then shows.

#include <QApplication>
#include <QLineEdit>

#include "tests/windows/stage.h"

namespace brusbo::test {
namespace {

class Play : public Stage {};

TEST_F(Play, AFullTurn) {
    start();
    std::string seen;
    world->at_pause = [&](int) {
        const int face = picture(at("Tärning"))->index - brusbo::picture("die-1").index;
        seen += std::to_string(face + 1) + " at " + std::to_string(at("Tärning").x()) + "; ";
    };
    // Places of 450 + floor(r * 1230) twips, 15 to the pixel; faces floor(6r + 1).
    world->dice.scripted = {0.0F,  0.0F, 0.5F,  0.2F, 0.99999F, 0.4F,
                            0.25F, 0.6F, 0.75F, 0.8F, 0.1F,     0.5F};
    for (const Qt::MouseButton other : {Qt::RightButton, Qt::MiddleButton}) click("Tärning", other);
    EXPECT_EQ(world->heard(), "") << "the left button alone clicks";
    EXPECT_EQ(play("Tärning"), "s3");
    EXPECT_EQ(seen, "1 at 30; 2 at 71; 3 at 112; 4 at 50; 5 at 91; 4 at 38; ");
    EXPECT_TRUE(at("butNästa").hasFocus());
    EXPECT_TRUE(visible("labPjäser_klara"));
    EXPECT_EQ(difference(), "");
    EXPECT_EQ(play("butNästa"), "s1");
    EXPECT_EQ(text("labMeddelande"), "Slå genom att klicka på tärningen.");
    EXPECT_EQ(difference(), "");
}

TEST_F(Play, AClickInAPosition) {
    const struct {
        const char *own, *moves, *heard, *own_after;
    } rows[] = {
        {"0 0 0 0", "6 butEn_pjäs", "s3 s1 s2 s2 s2 s2 s2 s2", "0 0 0 6"},
        {"0 0 0 0", "6 butTvå_pjäser", "s3 s1 s2 s2", "0 0 1 1"},
        {"42 0 3 0", "3 Pjäs(0)", "s3 s1 s2 s2 s2", "55 0 3 0"},
        {"5 0 0 0", "2 Pjäs(4)", "s3 s1", "5 0 0 0"},
        {"5 0 0 0", "2 Pjäs(1)", "s3 s1 beep", "5 0 0 0"},
        {"5 5 0 0", "3 Plus(1)", "s3 s1 s2 s2 s2", "5 8 0 0"},
    };
    start();
    for (const auto& row : rows) {
        Nytt_snabbt();
        place(1, row.own);
        EXPECT_EQ(play(row.moves), row.heard) << row.moves;
        EXPECT_EQ(squares(1), row.own_after) << row.moves;
        EXPECT_EQ(difference(), "") << row.moves;
    }
}

TEST_F(Play, TheSecondOfThreeWinsAndANewGameBegins) {
    for (const bool quick : {true, false}) {
        start(3);
        play("2 butNästa");
        place(1, "12 12 0 55");
        win([&] {
            EXPECT_EQ(world->heard(), "s1 s2");
            EXPECT_EQ(text("Grattis/lbResultat(0)") + text("Grattis/lbResultat(1)"), "14");
            click("Tärning");
            key("MFrm", Qt::Key_F2);
            key("Grattis", Qt::Key_F2);
            key("Grattis", Qt::Key_Escape);
            request_close("Grattis");
            EXPECT_TRUE(shown("Grattis")) << "neither key nor request closes it";
            EXPECT_FALSE(shown("Startfrm"));
            ends.clear();
            EXPECT_EQ(play("Grattis/Avsluta"), "");
            EXPECT_EQ(ends, std::vector{0});
            if (quick) return click("Grattis/butNytt_snabbt");
            when_shown("Startfrm", [&] {
                EXPECT_TRUE(shown("Grattis")) << "the start window comes over it";
                click("Startfrm/AntSpelare(1)");
                auto& name = as<QLineEdit>("Startfrm/Namn(0)");
                name.setFocus();
                name.selectAll();
                for (const Qt::Key letter : {Qt::Key_L, Qt::Key_A, Qt::Key_R, Qt::Key_S})
                    key("Startfrm", letter);
                click("Startfrm/Starta");
            });
            click("Grattis/butNytt_spel");
        });
        EXPECT_TRUE(shown("MFrm") && !shown("Grattis") && !shown("Startfrm") && !shown("Slut"));
        EXPECT_EQ(QApplication::activeWindow(), window("MFrm"));
        EXPECT_EQ(squares(1) + squares(2), "0 0 0 00 0 0 0");
        EXPECT_EQ(text("labMeddelande"), "Slå genom att klicka på tärningen.")
            << "nothing of the winning move follows";
        EXPECT_EQ(Antal_spelare, quick ? 3 : 2);
        EXPECT_EQ(text("labVisa_tur"), quick ? "Röds tur!" : "lars tur!");
        EXPECT_EQ(difference(), "");
        world->heard();
        EXPECT_EQ(play("6 butTvå_pjäser"), "s3 s1 s2 s2") << "the game goes on";
    }
}

}  // namespace
}  // namespace brusbo::test
