// Clicks on pieces and what comes of them: moves, knocks, markers, finishing and winning.

#include <algorithm>

#include "tests/engine/game.h"

namespace brusbo::test {
namespace {

using Moves = Game;

TEST_F(Moves, RefusedClicks) {
    run({
        {"another player's on the board", "1 throws 4: 9 0 55 0 / 3 0 0 0", "Pjäs(4)",
         "sound s1.wav; count 1", ""},
        {"another player's in the nest", "1 throws 4: 9 0 0 0", "Pjäs(5)", "sound s1.wav; count 0",
         ""},
        {"a slot without a player", "1 throws 4: 9 0 0 0", "Pjäs(15)", "sound s1.wav; count 0", ""},
        {"own in the nest", "1 throws 1: 9 0 0 0", "Pjäs(3)", "sound s1.wav; beep; count 0", ""},
        {"own in the nest, no throw", "1: 9 0 0 0", "Pjäs(3)", "sound s1.wav; beep; count 0", ""},
        {"own, no throw", "1: 9 0 0 0", "Pjäs(0)", "sound s1.wav; count 0", ""},
        {"own on the next square", "1 throws 2: 7 8 0 0", "Pjäs(0)",
         "sound s1.wav; tell block; count 0", ""},
        {"own on the square before the target", "1 throws 6: 0 7 0 12", "Pjäs(1)",
         "sound s1.wav; tell block; count 0", ""},
        {"own in the home lane", "2 throws 4: 0 0 0 0 / 43 40 55 0", "Pjäs(5)",
         "sound s1.wav; tell block; count 1", ""},
        {"own before the goal of a bounce", "1 throws 6: 44 43 0 0", "Pjäs(1)",
         "sound s1.wav; tell block; count 0", ""},
    });
}

TEST_F(Moves, MovesOnTheBoard) {
    run({
        {"on the ring", "1 throws 2: 8 0 0 0", "Pjäs(0)",
         "sound s1.wav; step Pjäs(0) 142,16; step Pjäs(0) 176,16; clear markers; end turn; count 0",
         "10 0 0 0, turn over"},
        {"a 6 into the home lane, and another throw", "1 throws 6: 0 38 0 55", "Pjäs(1)",
         "sound s1.wav; step Pjäs(1) 14,210; step Pjäs(1) 14,176; step Pjäs(1) 46,176; "
         "step Pjäs(1) 78,176; step Pjäs(1) 110,176; step Pjäs(1) 142,176; clear markers; "
         "throw again; count 1",
         "0 44 0 55, throw awaited"},
        {"into the fourth player's lane", "4 throws 3: 0 0 0 0 / 0 0 0 0 / 0 0 0 0 / 0 0 39 0",
         "Pjäs(14)",
         "sound s1.wav; step Pjäs(14) 176,336; step Pjäs(14) 176,304; step Pjäs(14) 176,272; "
         "clear markers; end turn; count 0",
         "0 0 0 0 / 0 0 0 0 / 0 0 0 0 / 0 0 42 0, turn over"},
        {"on to an own piece", "1 throws 2: 8 10 0 0", "Pjäs(0)",
         "sound s1.wav; step Pjäs(0) 142,16; step Pjäs(0) 176,16; clear markers; show Plus(1); "
         "move Plus(1) 176,16; end turn; count 0",
         "10 10 0 0, turn over"},
        {"a 1 is never blocked", "1 throws 1: 8 8 7 7", "Pjäs(2)",
         "sound s1.wav; step Pjäs(2) 142,48; clear markers; show Plus(1); move Plus(1) 142,48; "
         "show Plus(2); move Plus(2) 142,48; end turn; count 0",
         "8 8 8 7, turn over"},
        {"44 bounces to 40, past own pieces, and throws again", "1 throws 6: 44 41 43 55",
         "Pjäs(0)",
         "sound s1.wav; step Pjäs(0) 176,176; clear markers; step Pjäs(0) 142,176; "
         "step Pjäs(0) 110,176; step Pjäs(0) 78,176; step Pjäs(0) 46,176; step Pjäs(0) 14,176; "
         "clear markers; tell bounce; throw again; count 1",
         "40 41 43 55, throw awaited"},
        {"43 bounces to itself", "1 throws 4: 43 0 0 0", "Pjäs(0)",
         "sound s1.wav; step Pjäs(0) 142,176; step Pjäs(0) 176,176; clear markers; "
         "step Pjäs(0) 142,176; step Pjäs(0) 110,176; clear markers; tell bounce; end turn; "
         "count 0",
         "43 0 0 0, turn over"},
        {"40 bounces to 44", "1 throws 6: 40 0 0 0", "Pjäs(0)",
         "sound s1.wav; step Pjäs(0) 46,176; step Pjäs(0) 78,176; step Pjäs(0) 110,176; "
         "step Pjäs(0) 142,176; step Pjäs(0) 176,176; clear markers; step Pjäs(0) 142,176; "
         "clear markers; tell bounce; throw again; count 0",
         "44 0 0 0, throw awaited"},
        {"a bounce back to the ring knocks", "1 throws 6: 44 0 0 0 / 30 0 0 0", "Pjäs(0)",
         "sound s1.wav; step Pjäs(0) 176,176; clear markers; step Pjäs(0) 142,176; "
         "step Pjäs(0) 110,176; step Pjäs(0) 78,176; step Pjäs(0) 46,176; step Pjäs(0) 14,176; "
         "move Pjäs(4) 274,34; tell knock; clear markers; tell bounce; throw again; count 0",
         "40 0 0 0, throw awaited"},
        {"44 finishes with a 1", "1 throws 1: 44 0 0 55", "Pjäs(0)",
         "sound s1.wav; step Pjäs(0) 176,176; clear markers; tell finish; hide Pjäs(0); end turn; "
         "count 2",
         "55 0 0 55, turn over"},
        {"39 finishes with a 6 and throws again", "1 throws 6: 39 0 0 0", "Pjäs(0)",
         "sound s1.wav; step Pjäs(0) 14,176; step Pjäs(0) 46,176; step Pjäs(0) 78,176; "
         "step Pjäs(0) 110,176; step Pjäs(0) 142,176; step Pjäs(0) 176,176; clear markers; "
         "tell finish; hide Pjäs(0); throw again; count 1",
         "55 0 0 0, throw awaited"},
    });
}

TEST_F(Moves, Knocks) {
    run({
        {"one piece, on its own number of the square", "1 throws 2: 3 0 0 0 / 0 0 0 35", "Pjäs(0)",
         "sound s1.wav; step Pjäs(0) 110,142; step Pjäs(0) 142,142; move Pjäs(7) 316,76; "
         "tell knock; clear markers; end turn; count 0",
         "5 0 0 0, turn over"},
        {"passed over", "1 throws 2: 3 0 0 0 / 34 36 0 0", "Pjäs(0)",
         "sound s1.wav; step Pjäs(0) 110,142; step Pjäs(0) 142,142; clear markers; end turn; "
         "count 0",
         "5 0 0 0 / 34 36 0 0, turn over"},
        {"the same number is another square", "3 throws 1: 7 0 0 0 / 7 0 0 0 / 6 0 0 0", "Pjäs(8)",
         "sound s1.wav; step Pjäs(8) 210,272; clear markers; end turn; count 0",
         "7 0 0 0 / 7 0 0 0 / 7 0 0 0, turn over"},
        {"a stack goes home whole, on its entry square", "3 throws 1: 1 0 1 1 / 0 0 0 0 / 20 0 0 0",
         "Pjäs(8)",
         "sound s1.wav; step Pjäs(8) 14,142; move Pjäs(0) 36,34; tell knock; move Pjäs(2) 36,76; "
         "tell knock; move Pjäs(3) 78,76; tell knock; clear markers; end turn; count 0",
         "0 0 0 0 / 0 0 0 0 / 21 0 0 0, turn over"},
        {"several players at once", "4 throws 1: 30 0 0 0 / 0 20 0 0 / 0 0 0 10 / 39 0 0 0",
         "Pjäs(12)",
         "sound s1.wav; step Pjäs(12) 176,336; move Pjäs(0) 36,34; tell knock; "
         "move Pjäs(5) 316,34; tell knock; move Pjäs(11) 316,314; tell knock; clear markers; "
         "end turn; count 0",
         "0 0 0 0 / 0 0 0 0 / 0 0 0 0 / 40 0 0 0, turn over"},
        {"home lanes are apart", "1 throws 2: 40 0 0 0 / 42 0 0 0", "Pjäs(0)",
         "sound s1.wav; step Pjäs(0) 46,176; step Pjäs(0) 78,176; clear markers; end turn; count 0",
         "42 0 0 0 / 42 0 0 0, turn over"},
    });
    set_up("1: 8 0 0 0 / 38 0 0 0");  // the same square
    Flytta(1, 0);
    EXPECT_EQ(seen(), "move Pjäs(4) 274,34; tell knock; clear markers");
}

// With a missing positions file every square is the same point: whoever lands knocks all pieces on
// the board, and only those, so that counts stay right.
TEST_F(Moves, OnATableOfZerosNestsAndFinishedPiecesAreLeftAlone) {
    Positioner = {};
    run({{"all on the board", "1 throws 2: 3 0 0 55 / 0 9 55 44 / 0 0 0 0", "Pjäs(0)",
          "sound s1.wav; step Pjäs(0) 0,0; step Pjäs(0) 0,0; move Pjäs(5) 316,34; tell knock; "
          "move Pjäs(7) 316,76; tell knock; clear markers; end turn; count 1",
          "5 0 0 55 / 0 0 55 0, turn over"}});
    EXPECT_EQ(Spelare[2].Antal_i_boet, 3);
    EXPECT_EQ(Spelare[3].Antal_i_boet, 4);
}

TEST_F(Moves, Markers) {
    const std::pair<const char*, const char*> rows[] = {
        {"1: 0 0 0 0", ""},
        {"1: 1 2 3 4 / 55 55 0 0",
         "; hide Plus(1); hide Plus(2); hide Plus(2); hide Plus(3); hide Plus(3); hide Plus(3)"},
        {"1: 9 0 9 0", "; show Plus(2); move Plus(2) 142,16"},
        {"1: 9 9 2 9 / 9 8 8 0",
         "; show Plus(1); move Plus(1) 142,16; hide Plus(2); hide Plus(2); show Plus(3); "
         "move Plus(3) 142,16; hide Plus(5); hide Plus(6); show Plus(6); move Plus(6) 306,142"},
        {"4: 0 0 0 0 / 0 0 0 0 / 0 0 0 0 / 55 55 41 41",
         "; hide Plus(14); hide Plus(14); hide Plus(15); hide Plus(15); show Plus(15); "
         "move Plus(15) 176,304"},
    };
    for (const auto& [before, shown] : rows) {
        set_up(before);
        Uppdatera_plus();
        std::string all = "hide Plus(0)";
        for (int b = 1; b < 16; ++b) all += "; hide Plus(" + std::to_string(b) + ")";
        EXPECT_EQ(recorder.take(), all + shown) << before;
    }
}

TEST_F(Moves, OwnersAndNumbersOfPictures) {
    for (int b = -1; b <= piece_count; ++b) {
        const auto Index = static_cast<std::int16_t>(b);
        const bool exists = b >= 0 && b < piece_count;
        EXPECT_EQ(Vilken_pjäs(Index), exists ? 1 + b / 4 : 0);
        EXPECT_EQ(Pjäsen(Index), exists ? 1 + b % 4 : 0);
    }
}

class Winning : public Game {
   protected:
    /// Player 2 of three brings home the last piece with a 1; returns the effects from the moment
    /// the winner window is shown.
    std::string win() {
        set_up("2 throws 1: 3 55 0 9 / 55 55 44 55 / 0 0 0 0");
        click("Pjäs(6)");
        const std::string effects = seen();
        const std::string walk = "sound s1.wav; step Pjäs(6) 176,176; clear markers; ";
        EXPECT_EQ(effects.substr(0, walk.size()), walk);
        return effects.substr(std::min(walk.size(), effects.size()));
    }
};

TEST_F(Winning, TheWindowShowsTheFullCountBeforeThePieceLeaves) {
    recorder.at_Grattis = [] {
        EXPECT_EQ(Aktuell_spelare, 2);
        EXPECT_EQ(Spelare[2].Antal_klara, 4);
        EXPECT_TRUE(Pjäs_visible[6]);
    };
    EXPECT_EQ(win(), "show Grattis; hide Pjäs(6); end turn; count 4");
    EXPECT_EQ(squares(), "3 55 0 9 / 55 55 55 55");
}

TEST_F(Winning, AQuickNewGameDropsTheRestOfTheMove) {
    recorder.at_Grattis = [] {
        Grattis_öppen = true;
        Nytt_snabbt();
    };
    const std::string effects = win();
    EXPECT_TRUE(
        effects.starts_with("show Grattis; move shpHålbak 6,8; fill shpHålbak 128,0,0; "
                            "close Grattis; move Pjäs(0) 36,34; "));
    EXPECT_TRUE(effects.ends_with("; count 0; ask for throw"));
    EXPECT_EQ(Antal_spelare, 3);
    expect_fresh_game();
}

TEST_F(Winning, AFullNewGameDropsTheRestOfTheMove) {
    recorder.at_Startfrm = [] {
        Nollställ_spelare();
        Antal_spelare = 4;
    };
    recorder.at_Grattis = [] { Nytt_spel(); };
    const std::string effects = win();
    EXPECT_EQ(effects.find("close Grattis"), std::string::npos);  // its own button closes it
    EXPECT_TRUE(
        effects.ends_with("; count 0; ask for throw; show Startfrm; move shpHålbak 6,8; "
                          "fill shpHålbak 128,0,0"));
    EXPECT_EQ(Antal_spelare, 4);
    expect_fresh_game();
}

}  // namespace
}  // namespace brusbo::test
