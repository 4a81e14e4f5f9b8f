// Resets and new games; the sound switch.

#include <algorithm>

#include "tests/engine/game.h"

namespace brusbo::test {
namespace {

const std::string players_reset = "move shpHålbak 6,8; fill shpHålbak 128,0,0";

std::string board_reset() {
    std::string result;
    for (const char* place :
         {"0) 36,34", "1) 78,34", "2) 36,76", "3) 78,76", "4) 274,34", "5) 316,34", "6) 274,76",
          "7) 316,76", "8) 274,272", "9) 316,272", "10) 274,314", "11) 316,314", "12) 36,274",
          "13) 78,274", "14) 36,316", "15) 78,316"})
        result += std::string("move Pjäs(") + place + "; ";
    for (int b = 0; b < 16; ++b)
        result += "hide Plus(" + std::to_string(b) + "); show Pjäs(" + std::to_string(b) + "); ";
    return result +
           "move shpHålbak 6,8; enable Tärning; hide butNästa; hide butEn_pjäs; "
           "hide butTvå_pjäser; labVisa_tur = Röds tur!; picture imgVisa_tur gimgRöd 0; count 0";
}

/// The middle of a game of three players: the third has just thrown a 6.
class NewGame : public Game {
   protected:
    NewGame() { set_up("3 throws 6: 55 4 55 0 / 41 4 4 0 / 0 0 9 55"); }
};

TEST_F(NewGame, PlayersResetLeavesTheBoardAlone) {
    Nollställ_spelare();
    EXPECT_EQ(seen(), players_reset);
    EXPECT_EQ(squares(), "55 4 55 0 / 41 4 4 0 / 0 0 9 55");
    EXPECT_FALSE(Pjäs_visible[0]);
    EXPECT_EQ(Spelare[1].Antal_i_boet, 4);
    EXPECT_EQ(Spelare[1].Antal_klara, 0);
    EXPECT_EQ(Aktuell_spelare, 1);
    EXPECT_EQ(turn_state(), "move awaited, one, two");
}

TEST_F(NewGame, QuickKeepsThePlayers) {
    Nytt_snabbt();
    EXPECT_EQ(seen(), players_reset + "; " + board_reset() + "; ask for throw");
    EXPECT_EQ(Antal_spelare, 3);
    EXPECT_EQ(Senaste_slag, 6);
    EXPECT_EQ(Spelare[3].Namn, "Grön");
    expect_fresh_game();
}

TEST_F(NewGame, FullEndsInTheStartWindow) {
    recorder.at_Startfrm = [] {
        expect_fresh_game();
        Antal_spelare = 2;
    };
    Nytt_spel();
    EXPECT_EQ(seen(), players_reset + "; " + board_reset() + "; ask for throw; show Startfrm");
    EXPECT_EQ(Antal_spelare, 2);
}

TEST_F(NewGame, BoardResetClosesTheWinnerWindowOnce) {
    Grattis_öppen = true;
    Nollställ_spelare();
    seen();
    Återställ_spelplan();
    EXPECT_EQ(seen(), "close Grattis; " + board_reset());
    Återställ_spelplan();
    EXPECT_EQ(seen(), board_reset());
}

// Silence changes nothing but the sounds: not one call reaches the services.
TEST_F(NewGame, SoundSwitch) {
    const auto play = [this](bool sound) {
        Nytt_snabbt();
        Ljud_på = sound;
        recorder.effects.clear();
        for (const char* element : {"Tärning 6", "butEn_pjäs", "Tärning 6", "butTvå_pjäser",
                                    "butNästa", "Tärning 5", "butNästa", "Pjäs(0)"})
            click(element);
        return std::exchange(recorder.effects, {});
    };
    auto loud = play(true);
    const auto sounds =
        std::erase_if(loud, [](const std::string& effect) { return effect.starts_with("sound"); });
    EXPECT_EQ(sounds, 3 + 1 + 6 + 1 + 2 + 1 + 1 + 1);
    EXPECT_EQ(play(false), loud);
}

}  // namespace
}  // namespace brusbo::test
