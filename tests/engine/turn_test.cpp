// The turn: what a throw allows, the nest exits, handing the turn on; new games; the sound switch.

#include <cmath>
#include <regex>

#include "tests/engine/game.h"

namespace brusbo::test {
namespace {

using Turn = Game;

TEST_F(Turn, Throws) {
    const std::string one = "; show butEn_pjäs", both = one + "; show butTvå_pjäser";
    run({
        {"two in the nest", "1: 0 9 0 55", die(6),
         "throw 6; tell one or two" + both + " => 0 9 0 55, move, one, two"},
        {"one in the nest", "1: 3 9 0 55", die(6),
         "throw 6; tell only one" + one + " => 3 9 0 55, move, one"},
        {"empty nest, the current player's", "2: 0 0 0 0 / 5 6 7 8", die(6),
         "throw 6; tell empty nest => 0 0 0 0 / 5 6 7 8, move"},
        {"a 1", "1: 0 9 12 55", die(1), "throw 1; tell one" + one + " => 0 9 12 55, move, one"},
        {"full nest, the current player's", "1: 0 0 0 0 / 5 6 7 8", die(5),
         "throw 5; tell Du slog 5, full nest; offer next => 0 0 0 0 / 5 6 7 8, over"},
        {"one finished", "1: 0 55 0 0", die(4),
         "throw 4; tell Du slog 4, no piece; offer next => 0 55 0 0, over"},
        {"pieces are counted, not tried", "1: 44 55 43 44", die(2),
         "throw 2; tell Du slog 2, move => 44 55 43 44, move"},
    });
    EXPECT_EQ(Senaste_slag, 2);
}

// Values just below a boundary belong to the lower place or face, whatever the precision.
TEST_F(Turn, RandomValuesToPlacesAndFaces) {
    const float below_half = std::nextafter(0.5F, 0.0F), below_one = std::nextafter(1.0F, 0.0F);
    recorder.dice.scripted = {
        0.0F,       0.0F,          below_one,       below_one,      0.5F, 0.5F,
        below_half, below_half,    0x1.aa401ap-11F, 0x1.555554p-3F,  // next below 1/1230 and 1/6
        0.75F,      0x1.555556p-3F};
    EXPECT_EQ(Slå_tärning(), 2);
    std::string expected = "seed 43200.5; sound s3.wav; ";
    for (const char* step :
         {"450; picture Tärning T 0", "1679; picture Tärning T 5", "1065; picture Tärning T 3",
          "1064; picture Tärning T 2", "450; picture Tärning T 0", "1372; picture Tärning T 1"})
        expected += std::string("left Tärning ") + step + "; pause 200; ";
    EXPECT_EQ(seen(), expected + "show labPjäser_klara");
}

TEST_F(Turn, NestExits) {
    run({
        {"1: the highest-numbered one to the entry square", "2 throws 1: 0 0 0 0 / 0 20 0 55",
         butEn_pjäs_Click, "click; 6 walks 1; clear; end turn => 0 0 0 0 / 0 20 1 55, over"},
        {"a knock is told to the end", "1 throws 1: 0 0 0 0 / 0 31 0 0", butEn_pjäs_Click,
         "click; 3 walks 1; knock 5; clear; end turn => 0 0 0 1, over"},
        {"6: past other pieces and own ones", "1 throws 6: 0 1 3 6 / 31 35 0 0", butEn_pjäs_Click,
         "click; 0 walks 1 2 3 4 5 6; clear; mark 3 on 6; throw again "
         "=> 6 1 3 6 / 31 35 0 0, throw"},
        {"two pieces, the first knocks", "1 throws 6: 0 7 0 0 / 0 0 0 31", butTvå_pjäser_Click,
         "click; 3 walks 1; knock 7; clear; 2 walks 1; clear; mark 3 on 1; end turn "
         "=> 0 7 1 1, over"},
    });
}

TEST_F(Turn, NextPlayer) {
    set_up("1: 55 55 0 0 / 0 0 55 0 / 0 0 0 0 / 55 55 55 0");
    for (const std::string next : {"Blå1", "Grön0", "Gul3", "Röd2"}) {
        die(3)();
        seen();
        butNästa_Click();
        const std::string name = next.substr(0, next.size() - 1);
        EXPECT_EQ(seen(), "click; enable Tärning; hide butNästa; tell ask; turn " + name +
                              "; light " + name + "; count " + next.back());
    }
}

TEST_F(Turn, WhatIsHiddenOrAbsentIgnoresClicks) {
    set_up("1 throws 6: 1 2 3 55");
    for (const Click& click : {die(5), Click(butNästa_Click), Click(butEn_pjäs_Click),
                               Click(butTvå_pjäser_Click), piece(3), piece(-1), piece(16)})
        click();
    for (const std::int16_t nobody : {std::int16_t{0}, std::int16_t{5}}) {
        Aktuell_spelare = nobody;
        Move_BackShape();
    }
    EXPECT_EQ(seen(), "");
    EXPECT_EQ(Vilken_pjäs(-1) + Vilken_pjäs(16) + Pjäsen(-1) + Pjäsen(16), 0);
}

TEST_F(Turn, Possessive) {
    for (const std::string sentence : {"Lars| tur!", "LARS| tur!", "Lauſ| tur!", "|s tur!",
                                       "Hans |s tur!", "Strauß|s tur!", "Ås😀|s tur!"}) {
        const std::size_t end = sentence.find('|');
        Spelare[1].Namn = sentence.substr(0, end);
        Visa_tur();
        EXPECT_EQ(seen(), "labVisa_tur = " + Spelare[1].Namn + sentence.substr(end + 1) +
                              "; picture imgVisa_tur gimgRöd 0");
    }
}

/// The middle of a game of three players: the third has just thrown a 6.
class NewGame : public Game {
   protected:
    NewGame() { set_up("3 throws 6: 55 4 55 0 / 41 4 4 0 / 0 0 9 55"); }
};

// As when the start window comes up again.
TEST_F(NewGame, PlayersResetLeavesTheBoardAlone) {
    Nollställ_spelare();
    EXPECT_EQ(seen(), "light Röd");
    EXPECT_EQ(situation(), "55 4 55 0 / 41 4 4 0 / 0 0 9 55, move, one, two");
    EXPECT_EQ(Spelare[1].Antal_i_boet, 4);
}

TEST_F(NewGame, KeepsThePlayersUntilTheStartWindow) {
    recorder.at_Startfrm = [] {
        EXPECT_EQ(situation(), "0 0 0 0, first throw");
        EXPECT_EQ(Antal_spelare, 3);
        EXPECT_EQ(Spelare[3].Namn, "Grön");
        EXPECT_EQ(Senaste_slag, 6);
        Antal_spelare = 2;
    };
    Grattis_öppen = true;
    Nytt_spel();
    EXPECT_EQ(seen(), "light Röd; close Grattis; reset board; tell ask; show Startfrm");
    EXPECT_EQ(Antal_spelare, 2);
    Nytt_snabbt();
    EXPECT_EQ(seen(), "light Röd; reset board; tell ask");
}

// Silence changes nothing but the sounds: not one call reaches the services.
TEST_F(NewGame, SoundSwitch) {
    const auto play = [this](bool sound) {
        Nytt_snabbt();
        Ljud_på = sound;
        recorder.effects.clear();
        for (const Click& click : {die(6), Click(butEn_pjäs_Click), die(6),
                                   Click(butTvå_pjäser_Click), Click(butNästa_Click), piece(0)})
            click();
        return std::exchange(recorder.effects, "");
    };
    const std::string loud = play(true);
    EXPECT_EQ(play(false), std::regex_replace(loud, std::regex("sound s.\\.wav; "), ""));
}

}  // namespace
}  // namespace brusbo::test
