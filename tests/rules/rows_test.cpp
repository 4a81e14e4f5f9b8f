// What each rule says, row by row; the order of all effects is the signature's business.

#include <cmath>

#include "tests/rules/recorder.h"

namespace brusbo::test {
namespace {

template <std::int16_t b>
void piece() {
    Pjäs_Click(b);
}

TEST_F(Game, ThrowsAndNestExits) {
    const auto die = [this](int face) {
        return [this, face] { recorder.dice.script(face), Tärning_Click(); };
    };
    run({
        {"two in the nest", "1: 0 9 0 55", die(6), "3", " den.", "0 9 0 55, move, one, two"},
        {"all in the nest", "1: 0 0 0 0", die(5), "3", " 6.", "0 0 0 0, over"},
        {"counted, not tried", "1: 44 55 43 0", die(2), "3", " den.", "44 55 43 0, move"},
        {"the highest-numbered one", "2 throws 1: 0 0 0 0 / 0 20 0 55", butEn_pjäs_Click, "12", "",
         "0 0 0 0 / 0 20 1 55, over"},
        {"two, the first knocks", "1 throws 6: 0 7 0 0 / 0 0 0 31", butTvå_pjäser_Click, "122",
         " spelare!", "0 7 1 1, over"},
    });
}

// Values just below a boundary belong to the lower place or face, whatever the precision; what is
// outside counts as the nearest inside.
TEST_F(Game, RandomValuesToPlacesAndFaces) {
    const auto below = [](float value) { return std::nextafter(value, 0.0F); };
    recorder.dice.scripted = {below(1),    below(1),    0.5F,        0.5F,
                              below(0.5F), below(0.5F), 1 / 1230.0F, below(1 / 6.0F),
                              1.0F,        1 / 6.0F,    -1.0F,       1.0F};
    recorder.effects.str("");
    EXPECT_EQ(Slå_tärning(), 6);
    std::ostringstream expected("seed 43200.5\nsound s3.wav\n", std::ios::ate);
    for (const auto& [left, face] :
         {Point(1679, 6), {1065, 4}, {1064, 3}, {450, 1}, {1679, 2}, {450, 6}})
        expected << "left 4 0 " << left << "\npicture 4 0 4 " << face - 1 << "\npause 200\n";
    EXPECT_EQ(recorder.effects.str(), expected.str() + "visible 2 0 1\n");
}

TEST_F(Game, Pieces) {
    run({
        {"another's", "1 throws 4: 9 0 55 0 / 3 0 0 0", piece<4>, "1", "", ""},
        {"in the nest", "1 throws 1: 9 0 0 0", piece<3>, "1!", "", ""},
        {"no throw", "1: 9 0 0 0", piece<0>, "1", "", ""},
        {"before the next own", "1 throws 2: 7 8 0 0", piece<0>, "1", " spelpjäsen.", ""},
        {"hidden", "1 throws 6: 1 2 3 55", piece<3>, "", "", ""},
        {"no such", "1 throws 1: 9 0 0 0", [] { Pjäs_Click(-1), Pjäs_Click(16); }, "", "", ""},
        {"on to an own piece", "1 throws 2: 8 10 0 0", piece<0>, "122", "", "10 10 0 0, over"},
        {"a 1 is never blocked", "1 throws 1: 8 8 7 7", piece<2>, "12", "", "8 8 8 7, over"},
        {"bounce past own ones, with a knock", "1 throws 6: 44 41 43 55 / 30 34 0 32", piece<0>,
         "1222222", " spelare! mer. igen!", "40 41 43 55 / 0 34 0 32, throw"},
        {"finish", "1 throws 1: 44 0 0 55", piece<0>, "12", " spelområdet!", "55 0 0 55, over"},
        {"knock a stack, on its entry square", "2 throws 1: 1 0 1 0 / 30 0 0 0", piece<4>, "12",
         " spelare! spelare!", "0 0 0 0 / 31 0 0 0, over"},
    });
    Positioner = {};  // as without a positions file: every square is the same point
    run({{"all on the board, nobody else", "1 throws 2: 3 0 0 55 / 0 9 55 44", piece<0>, "122",
          " spelare! spelare!", "5 0 0 55 / 0 0 55 0, over"}});
    EXPECT_EQ(Vilken_pjäs(-1) + Vilken_pjäs(16) + Pjäsen(-1) + Pjäsen(16), 0);
}

// A new game that is started from the winner window drops the rest of the move.
TEST_F(Game, WinningAndNewGames) {
    const char* const win = "2 throws 1: 3 55 0 9 / 55 55 44 55";
    run({{"window closed", win, piece<6>, "12", "", "3 55 0 9 / 55 55 55 55, over"}});
    recorder.at_Grattis = Nytt_spel;
    run({{"new game", win, piece<6>, "12", " tärningen.", "0 0 0 0, throw"}});
    recorder.at_Grattis = [] { Grattis_öppen = true, Nytt_snabbt(); };
    run({{"same players", win, piece<6>, "12", " tärningen.", "0 0 0 0, throw"}});
    Antal_spelare = 3;
    run({{"round", "3 throws 3: 5 0 0 0", butNästa_Click, "1", " tärningen.", "5 0 0 0, throw"},
         {"new game", "3 throws 6: 5 0 0 0", Nytt_snabbt, "", " tärningen.", "0 0 0 0, throw"}});
    EXPECT_EQ(Point(Antal_spelare, Senaste_slag), Point(3, 6));
    recorder.effects.str("");
    for (Aktuell_spelare = 0; Aktuell_spelare <= 5; Aktuell_spelare += 5) Move_BackShape();
    EXPECT_EQ(recorder.effects.str(), "");
}

TEST_F(Game, Possessive) {
    for (const std::string sentence : {"Lars| tur!", "LARS| tur!", "Lauſ| tur!", "|s tur!",
                                       "Hans |s tur!", "Strauß|s tur!", "Ås😀|s tur!"}) {
        const std::size_t end = sentence.find('|');
        Spelare[1].Namn = sentence.substr(0, end);
        recorder.effects.str("");
        Visa_tur();
        EXPECT_EQ(recorder.effects.str(),
                  "text 0 0 " + Spelare[1].Namn + sentence.substr(end + 1) + "\npicture 3 0 0 0\n");
    }
}

}  // namespace
}  // namespace brusbo::test
