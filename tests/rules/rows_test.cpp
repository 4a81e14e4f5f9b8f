// What each rule says, row by row; the order of all effects is the signature's business.

#include <cmath>
#include <tuple>

#include "tests/rules/recorder.h"

namespace brusbo::test {
namespace {

using Rules = Game;

template <std::int16_t b>
void piece() {
    Pjäs_Click(b);
}

TEST_F(Rules, ThrowsAndNestExits) {
    const auto die = [this](int face) {
        return [this, face] { recorder.dice.script(face), Tärning_Click(); };
    };
    run({
        {"two in the nest", "1: 0 9 0 55", die(6), "3", "välja mellan", "0 9 0 55, move, one, two"},
        {"one in the nest", "1: 3 9 0 55", die(6), "3", "bara en pjäs", "3 9 0 55, move, one"},
        {"nest empty, the current player's", "2: 0 0 0 0 / 5 6 7 8", die(6), "3", "från boet för",
         "0 0 0 0 / 5 6 7 8, move"},
        {"a 1", "1: 0 9 12 55", die(1), "3", "Du slog 1", "0 9 12 55, move, one"},
        {"all in the nest", "1: 0 0 0 0", die(5), "3", "alla står i boet", "0 0 0 0, over"},
        {"one finished", "1: 0 55 0 0", die(4), "3", "låta nästa", "0 55 0 0, over"},
        {"counted, not tried", "1: 44 55 43 0", die(2), "3", "slog 2. Det", "44 55 43 0, move"},
        {"not offered", "1 throws 3: 0 2 3 55", butEn_pjäs_Click, "", "", ""},
        {"the highest-numbered one", "2 throws 1: 0 0 0 0 / 0 20 0 55", butEn_pjäs_Click, "12", "",
         "0 0 0 0 / 0 20 1 55, over"},
        {"past others and own ones", "1 throws 6: 0 1 3 6 / 31 35 0 0", butEn_pjäs_Click, "1222222",
         "slå igen", "6 1 3 6 / 31 35 0 0, throw"},
        {"two, the first knocks", "1 throws 6: 0 7 0 0 / 0 0 0 31", butTvå_pjäser_Click, "122",
         "knuffade", "0 7 1 1, over"},
    });
}

// Values just below a boundary belong to the lower place or face, whatever the precision; what is
// outside counts as the nearest inside.
TEST_F(Rules, RandomValuesToPlacesAndFaces) {
    const float below_half = std::nextafter(0.5F, 0.0F), below_one = std::nextafter(1.0F, 0.0F);
    const std::tuple<float, float, const char*, int> throws[] = {
        {below_one, below_one, "1679", 6},
        {0.5F, 0.5F, "1065", 4},
        {below_half, below_half, "1064", 3},
        {0x1.aa401ap-11F, 0x1.555554p-3F, "450", 1},  // next below 1/1230 and 1/6
        {1.0F, 0x1.555556p-3F, "1679", 2},
        {-1.0F, 1.0F, "450", 6},
    };
    for (const auto& [place, face, left, result] : throws) {
        recorder.dice.scripted.assign(10, 0.75F);
        recorder.dice.scripted.insert(recorder.dice.scripted.end(), {place, face});
        EXPECT_EQ(Slå_tärning(), result);
        EXPECT_EQ(recorder.shown("left", Element::Tärning), left);
    }
}

TEST_F(Rules, Pieces) {
    run({
        {"another's", "1 throws 4: 9 0 55 0 / 3 0 0 0", piece<4>, "1", "", ""},
        {"in the nest", "1 throws 1: 9 0 0 0", piece<3>, "1!", "", ""},
        {"no throw", "1: 9 0 0 0", piece<0>, "1", "", ""},
        {"before the next own", "1 throws 2: 7 8 0 0", piece<0>, "1", "står i vägen", ""},
        {"before one ahead of the goal", "1 throws 6: 44 43 0 0", piece<1>, "1", "i vägen", ""},
        {"hidden", "1 throws 6: 1 2 3 55", piece<3>, "", "", ""},
        {"no such piece", "1 throws 6: 1 2 3 55", piece<-1>, "", "", ""},
        {"nor such", "1 throws 6: 1 2 3 55", piece<16>, "", "", ""},
        {"on to an own piece", "1 throws 2: 8 10 0 0", piece<0>, "122", "", "10 10 0 0, over"},
        {"a 1 is never blocked", "1 throws 1: 8 8 7 7", piece<2>, "12", "", "8 8 8 7, over"},
        {"bounce", "1 throws 4: 43 0 0 0", piece<0>, "12222", "studsade", "43 0 0 0, over"},
        {"bounce past own ones, with a knock", "1 throws 6: 44 41 43 55 / 30 0 0 0", piece<0>,
         "1222222", "knuffade, studsade, slå igen", "40 41 43 55, throw"},
        {"finish", "1 throws 1: 44 0 0 55", piece<0>, "12", "en till pjäs", "55 0 0 55, over"},
        {"knock, not in passing", "1 throws 2: 3 0 0 0 / 34 36 0 35", piece<0>, "122", "knuffade",
         "5 0 0 0 / 34 36 0 0, over"},
        {"knock a stack, on its entry square", "2 throws 1: 1 0 1 0 / 30 0 0 0", piece<4>, "12",
         "knuffade, knuffade", "0 0 0 0 / 31 0 0 0, over"},
    });
    Positioner = {};  // as without a positions file: every square is the same point
    run({{"all on the board, nobody else", "1 throws 2: 3 0 0 55 / 0 9 55 44", piece<0>, "122",
          "knuffade, knuffade", "5 0 0 55 / 0 0 55 0, over"}});
    EXPECT_EQ(Vilken_pjäs(-1) + Vilken_pjäs(16) + Pjäsen(-1) + Pjäsen(16), 0);
}

// A new game that is started from the winner window drops the rest of the move.
TEST_F(Rules, WinningAndNewGames) {
    const char* const win = "2 throws 1: 3 55 0 9 / 55 55 44 55";
    run({{"window closed", win, piece<6>, "12", "", "3 55 0 9 / 55 55 55 55, over"}});
    recorder.at_Grattis = Nytt_spel;
    run({{"new game", win, piece<6>, "12", "Slå genom", "0 0 0 0, throw"}});
    recorder.at_Grattis = [] { Grattis_öppen = true, Nytt_snabbt(); };
    run({{"same players", win, piece<6>, "12", "Slå genom", "0 0 0 0, throw"}});
    EXPECT_FALSE(Grattis_öppen);
    Antal_spelare = 3;
    run({{"back to player 1", "3 throws 3: 5 0 0 0", butNästa_Click, "1", "Slå", "5 0 0 0, throw"},
         {"new game", "3 throws 6: 5 0 0 0", Nytt_snabbt, "", "Slå genom", "0 0 0 0, throw"}});
    EXPECT_EQ(Antal_spelare, 3);
    EXPECT_EQ(Senaste_slag, 6);
    for (Aktuell_spelare = 0; Aktuell_spelare <= 5; Aktuell_spelare += 5) Move_BackShape();
    EXPECT_EQ(recorder.shown("place", Element::shpHålbak), "6,8");
}

TEST_F(Rules, Possessive) {
    for (const std::string sentence : {"Lars| tur!", "LARS| tur!", "Lauſ| tur!", "|s tur!",
                                       "Hans |s tur!", "Strauß|s tur!", "Ås😀|s tur!"}) {
        const std::size_t end = sentence.find('|');
        Spelare[1].Namn = sentence.substr(0, end);
        Visa_tur();
        EXPECT_EQ(recorder.shown("text", Element::labVisa_tur),
                  Spelare[1].Namn + sentence.substr(end + 1));
    }
}

}  // namespace
}  // namespace brusbo::test
