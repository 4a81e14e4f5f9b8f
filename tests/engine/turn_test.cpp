// The turn: what a throw allows, the nest exits, handing the turn on.

#include <cmath>

#include "tests/engine/game.h"

namespace brusbo::test {
namespace {

/// All that a scripted throw does before it is looked at.
std::string throw_of(int face) {
    std::string result = "seed 43200.250000; sound s3.wav; ";
    for (int step = 0; step < 6; ++step)
        result += "left Tärning 450; picture Tärning T " +
                  std::to_string(step == 5 ? face - 1 : 0) + "; pause 200; ";
    return result + "show labPjäser_klara; tag Tärning " + std::to_string(face) +
           "; disable Tärning; labMeddelande = ";
}

using Throw = Game;

TEST_F(Throw, EvaluationRows) {
    struct Throws {
        const char *purpose, *before;
        int face;
        std::string message;
        const char *then, *state;
    };
    const std::string six =
        "Du slog 6, du har nu möjlighet att välja mellan att flytta ut 1 eller 2 pjäser på "
        "spelplanen. Du kan också flytta en pjäs som redan står på spelplanen genom att klicka på "
        "den.";
    const std::string six_with_one =
        "Du slog 6, men hara bara en pjäs i boet. Du kan flytta ut den eller flytta någon annan "
        "pjäs 6 steg.";
    const std::string empty_nest =
        "Du kan inte flytta någon pjäs från boet för du har inga där. Flytta istället en pjäs på "
        "spelplanen genom att klicka på den. ";
    const std::string ace =
        "Du slog 1, du kan nu antingen flytta ut en spelare från boet. Eller flytta en spelare som "
        "redan står på spelplanen.";
    const std::string all_in_nest =
        ". Du kan inte flytta någon pjäs för alla står i boet. För att flytta ut någon på "
        "spelplanen måste du slå 1 eller 6.";
    const std::string none =
        ". Du kan inte flytta någon pjäs. Det är bara att låta nästa spelare fortsätta.";
    const std::string move =
        ". Det enda du kan göra nu är att flytta en av de pjäser du har på spelplanen genom att "
        "klicka på den.";
    const char *one = "; show butEn_pjäs", *both = "; show butEn_pjäs; show butTvå_pjäser",
               *over = "; show butNästa; focus butNästa";
    const Throws rows[] = {
        {"full nest", "1: 0 0 0 0", 6, six, both, "move awaited, one, two"},
        {"two in the nest", "1: 0 9 0 55", 6, six, both, "move awaited, one, two"},
        {"one in the nest", "1: 3 9 0 55", 6, six_with_one, one, "move awaited, one"},
        {"empty nest", "1: 3 9 44 55", 6, empty_nest, "", "move awaited"},
        {"full nest", "1: 0 0 0 0", 1, ace, one, "move awaited, one"},
        {"one in the nest", "1: 0 9 12 55", 1, ace, one, "move awaited, one"},
        {"empty nest", "1: 1 9 12 55", 1, empty_nest, "", "move awaited"},
        {"all in the nest", "1: 0 0 0 0", 3, "Du slog 3" + all_in_nest, over, "turn over"},
        {"one finished", "1: 0 55 0 0", 4, "Du slog 4" + none, over, "turn over"},
        {"three finished", "1: 55 55 0 55", 2, "Du slog 2" + none, over, "turn over"},
        {"one on the board", "1: 0 0 0 7", 5, "Du slog 5" + move, "", "move awaited"},
        {"all on the board", "1: 1 2 3 7", 2, "Du slog 2" + move, "", "move awaited"},
        {"pieces are counted, not tried", "1: 44 55 43 44", 3, "Du slog 3" + move, "",
         "move awaited"},
        {"the current player's", "2: 0 0 0 0 / 5 6 7 8", 6, empty_nest, "", "move awaited"},
        {"the current player's", "1: 0 0 0 0 / 5 6 7 8", 5, "Du slog 5" + all_in_nest, over,
         "turn over"},
    };
    for (const Throws& row : rows) {
        SCOPED_TRACE(std::to_string(row.face) + ", " + row.purpose);
        set_up(row.before);
        click("Tärning " + std::to_string(row.face));
        EXPECT_EQ(recorder.take(), throw_of(row.face) + row.message + row.then);
        EXPECT_EQ(turn_state(), row.state);
        EXPECT_EQ(Senaste_slag, row.face);
    }
}

// Values just below a boundary belong to the lower place or face, whatever the precision.
TEST_F(Throw, RandomValuesToPlacesAndFaces) {
    struct Step {
        float place, face;
        const char *left, *picture;
    };
    const float below_half = std::nextafter(0.5F, 0.0F), below_one = std::nextafter(1.0F, 0.0F);
    const Step steps[] = {
        {0.0F, 0.0F, "450", "0"},
        {below_one, below_one, "1679", "5"},
        {0.5F, 0.5F, "1065", "3"},
        {below_half, below_half, "1064", "2"},
        {0x1.aa401ap-11F, 0x1.555554p-3F, "450", "0"},  // next below 1/1230 and 1/6
        {0.75F, 0x1.555556p-3F, "1372", "1"},
    };
    std::string expected = "seed 43200.250000; sound s3.wav; ";
    for (const Step& step : steps) {
        recorder.random_values.insert(recorder.random_values.end(), {step.place, step.face});
        expected += std::string("left Tärning ") + step.left + "; picture Tärning T " +
                    step.picture + "; pause 200; ";
    }
    EXPECT_EQ(Slå_tärning(), 2);
    EXPECT_EQ(recorder.take(), expected + "show labPjäser_klara");
}

using Turn = Game;

TEST_F(Turn, NestExits) {
    run({
        {"1: on to the entry square, the turn ends", "1 throws 1: 0 0 0 0", "butEn_pjäs",
         "sound s1.wav; step Pjäs(3) 14,142; clear markers; end turn", "0 0 0 1, turn over"},
        {"6: on to the sixth square and another throw", "1 throws 6: 0 0 0 0", "butEn_pjäs",
         "sound s1.wav; step Pjäs(3) 14,142; step Pjäs(3) 46,142; step Pjäs(3) 78,142; "
         "step Pjäs(3) 110,142; step Pjäs(3) 142,142; step Pjäs(3) 142,112; clear markers; "
         "throw again",
         "0 0 0 6, throw awaited"},
        {"the highest-numbered piece in the nest", "2 throws 1: 0 0 0 0 / 0 20 0 55", "butEn_pjäs",
         "sound s1.wav; step Pjäs(6) 210,16; clear markers; end turn",
         "0 0 0 0 / 0 20 1 55, turn over"},
        {"a knock on the entry square, told to the end", "1 throws 1: 0 0 0 0 / 0 31 0 0",
         "butEn_pjäs",
         "sound s1.wav; step Pjäs(3) 14,142; move Pjäs(5) 316,34; tell knock; clear markers; "
         "end turn",
         "0 0 0 1, turn over"},
        {"past other pieces and own ones", "1 throws 6: 0 1 3 6 / 31 35 0 0", "butEn_pjäs",
         "sound s1.wav; step Pjäs(0) 14,142; step Pjäs(0) 46,142; step Pjäs(0) 78,142; "
         "step Pjäs(0) 110,142; step Pjäs(0) 142,142; step Pjäs(0) 142,112; clear markers; "
         "show Plus(3); move Plus(3) 142,112; throw again",
         "6 1 3 6 / 31 35 0 0, throw awaited"},
        {"two pieces end the turn", "1 throws 6: 0 0 0 0", "butTvå_pjäser",
         "sound s1.wav; step Pjäs(3) 14,142; clear markers; step Pjäs(2) 14,142; clear markers; "
         "show Plus(3); move Plus(3) 14,142; end turn",
         "0 0 1 1, turn over"},
        {"the first of the two knocks", "1 throws 6: 0 7 0 0 / 0 0 0 31", "butTvå_pjäser",
         "sound s1.wav; step Pjäs(3) 14,142; move Pjäs(7) 316,76; tell knock; clear markers; "
         "step Pjäs(2) 14,142; clear markers; show Plus(3); move Plus(3) 14,142; end turn",
         "0 7 1 1, turn over"},
    });
}

TEST_F(Turn, NextPlayer) {
    run({
        {"first to second", "1 throws 3: 0 0 0 0 / 55 0 0 0", "butNästa",
         "sound s1.wav; enable Tärning; hide butNästa; ask for throw; labVisa_tur = Blås tur!; "
         "picture imgVisa_tur gimgBlå 0; move shpHålbak 244,8; fill shpHålbak 0,0,128; count 1",
         "0 0 0 0 / 55 0 0 0, throw awaited"},
        {"second of two to first", "2 throws 3: 55 55 0 0 / 55 0 0 0", "butNästa",
         "sound s1.wav; enable Tärning; hide butNästa; ask for throw; labVisa_tur = Röds tur!; "
         "picture imgVisa_tur gimgRöd 0; move shpHålbak 6,8; fill shpHålbak 128,0,0; count 2",
         "55 55 0 0 / 55 0 0 0, throw awaited"},
        {"second to third", "2 throws 3: 0 0 0 0 / 0 0 0 0 / 0 0 0 0", "butNästa",
         "sound s1.wav; enable Tärning; hide butNästa; ask for throw; labVisa_tur = Gröns tur!; "
         "picture imgVisa_tur gimgGrön 0; move shpHålbak 244,246; fill shpHålbak 0,128,0; count 0",
         "nests, throw awaited"},
        {"third of four to fourth", "3 throws 3: 0 0 0 0 / 0 0 0 0 / 0 0 0 0 / 0 0 0 0", "butNästa",
         "sound s1.wav; enable Tärning; hide butNästa; ask for throw; labVisa_tur = Guls tur!; "
         "picture imgVisa_tur gimgGul 0; move shpHålbak 6,246; fill shpHålbak 192,192,0; count 0",
         "nests, throw awaited"},
    });
    EXPECT_EQ(Senaste_slag, 3);
    for (const int players : {2, 3, 4}) {
        Aktuell_spelare = Antal_spelare = static_cast<std::int16_t>(players);
        Klar();
        butNästa_Click();
        EXPECT_EQ(Aktuell_spelare, 1) << players;
    }
}

TEST_F(Turn, ElementsThatAreHiddenOrDisabledIgnoreClicks) {
    run({
        {"die while a move is awaited", "1 throws 6: 0 0 0 0", "Tärning 5", "", ""},
        {"die at the end of a turn", "1 throws 3: 0 0 0 0", "Tärning 5", "", ""},
        {"next player before a throw", "1: 0 0 0 0", "butNästa", "", ""},
        {"one piece with an empty nest", "1 throws 6: 1 2 3 4", "butEn_pjäs", "", ""},
        {"two pieces after a 1", "1 throws 1: 0 0 0 0", "butTvå_pjäser", "", ""},
        {"a finished piece", "1 throws 2: 55 3 0 0", "Pjäs(0)", "", ""},
        {"no piece", "1 throws 2: 1 0 0 0", "Pjäs(-1)", "", ""},
        {"no piece", "1 throws 2: 1 0 0 0", "Pjäs(16)", "", ""},
    });
}

TEST_F(Turn, Possessive) {
    const std::pair<const char*, const char*> rows[] = {
        {"Röd", "Röds tur!"},  {"Lars", "Lars tur!"},    {"LARS", "LARS tur!"},
        {"s", "s tur!"},       {"", "s tur!"},           {"Max", "Maxs tur!"},
        {"Liz", "Lizs tur!"},  {"Hans ", "Hans s tur!"}, {"Strauß", "Straußs tur!"},
        {"Lauſ", "Lauſ tur!"}, {"Ås😀", "Ås😀s tur!"},     {"Jos\u0301", "Jos\u0301s tur!"},
    };
    for (const auto& [name, sentence] : rows) {
        Spelare[1].Namn = name;
        Visa_tur();
        EXPECT_EQ(recorder.take(),
                  std::string("labVisa_tur = ") + sentence + "; picture imgVisa_tur gimgRöd 0");
    }
}

TEST_F(Turn, HighlightStaysWhenNobodyIsCurrent) {
    for (const int nobody : {0, 5, -1}) {
        Aktuell_spelare = static_cast<std::int16_t>(nobody);
        Move_BackShape();
        EXPECT_EQ(recorder.take(), "") << nobody;
    }
}

}  // namespace
}  // namespace brusbo::test
