// Whole games with a fixed seed, legal and illegal clicks, and one number that stands for every
// effect of all of them.

#include <cstdlib>
#include <fstream>

#include "tests/rules/recorder.h"

namespace brusbo::test {
namespace {

using Games = Game;

// What the games below are checked by has to see a fault itself.
TEST_F(Games, BrokenInvariantsAreSeen) {
    void (*const faults[])() = {
        [] { Antal_spelare = 1; },
        [] { Antal_spelare = 5; },
        [] { Antal_spelare = 2; },
        [] { Aktuell_spelare = 0; },
        [] { Aktuell_spelare = 4; },
        [] { ++Spelare[1].Antal_i_boet; },
        [] { ++Spelare[1].Antal_klara; },
        [] { Spelare[1].Ruta[2] = square_goal; },
        [] { Spelare[1].Ruta[2] = -1; },
        [] { Pjäs_visible[2] = true; },
        [] { Har_flyttat = true, Val12(false); },
        [] { Tärning_enabled = true; },
        [] { Har_flyttat = Tärning_enabled = butNästa_visible = true, Val12(false); },
        [] { Har_flyttat = butNästa_visible = true; },
        [] { butNästa_visible = true, Val12(false); },
        [] { butEn_pjäs_visible = false; },
        [] { Spelare[1].Ruta[1] = Spelare[1].Antal_i_boet = 1; },
        [] { Spelare[1].Ruta[1] = Spelare[1].Ruta[4] = 1, Spelare[1].Antal_i_boet = 0; },
    };
    for (const auto& fault : faults) {
        Antal_spelare = 3;
        set_up("1 throws 6: 0 5 55 0 / 0 0 0 0 / 7 0 0 0");
        ASSERT_EQ(broken_invariant(), nullptr);
        fault();
        EXPECT_NE(broken_invariant(), nullptr) << "fault " << &fault - faults;
    }
    reset_to_program_start();
    EXPECT_EQ(situation() + Spelare[1].Namn, "0 0 0 0, throw");
    EXPECT_EQ(Aktuell_spelare + Antal_spelare + Senaste_slag + Har_flyttat + Ljud_på, 0);
}

void expect_screen_shows_state(Recorder& recorder) {
    const auto seen = [&](ElementId id) {
        return recorder.shown("visible", id) == "1" ? recorder.shown("place", id) : "hidden";
    };
    for (int b = 0; b < piece_count; ++b) {
        const auto [left, top] = place_of(b);
        const std::string place = std::to_string(left) + "," + std::to_string(top);
        const bool finished = square_of(b) == square_finished;
        EXPECT_EQ(seen({Element::Pjäs, b}), finished ? "hidden" : place) << b;
        EXPECT_EQ(seen({Element::Plus, b}), is_marked(b) ? place : "hidden") << b;
    }
    EXPECT_EQ(recorder.shown("enabled", Element::Tärning), std::to_string(Tärning_enabled));
    EXPECT_EQ(recorder.shown("visible", Element::butNästa), std::to_string(butNästa_visible));
}

TEST_F(Games, Signature) {
    std::mt19937 generator(20240607);
    const auto below = [&](unsigned count) { return static_cast<int>(generator() % count); };
    std::map<std::pair<int, int>, int> wins;  // by number of players and winner
    int games = 0;
    recorder.at_Startfrm = [&] {
        Nollställ_spelare();
        Antal_spelare = static_cast<std::int16_t>(games % 3 + 2);
        Ljud_på = below(4) != 0;
    };
    recorder.at_Grattis = [&] {
        ++games, ++wins[{Antal_spelare, Aktuell_spelare}];
        EXPECT_EQ(Spelare[Aktuell_spelare].Antal_klara, 4);
        const int choice = below(3);
        Grattis_öppen = choice == 1;
        if (choice != 0) Nytt_spel();
    };
    static constexpr void (*buttons[])() = {Tärning_Click, butNästa_Click, butEn_pjäs_Click,
                                            butTvå_pjäser_Click};
    for (Nytt_spel(); games < 90 && !HasFailure();) {
        ASSERT_LT(recorder.effects.size(), 200'000'000U) << "games do not end";
        const bool won = Spelare[Aktuell_spelare].Antal_klara == 4;
        if (won || below(10'000) == 0) won ? Nytt_spel() : Nytt_snabbt();
        const bool silent = !Ljud_på;
        recorder.heard = "";
        // Mostly own pieces: another's is always refused.
        const int any = below(16), kind = below(8);
        const int own = 4 * (Aktuell_spelare - 1) + any % 4;
        kind < 4 ? buttons[kind]() : Pjäs_Click(static_cast<std::int16_t>(kind < 5 ? any : own));
        EXPECT_TRUE(!silent || recorder.heard.find_first_not_of('!') == std::string::npos);
        EXPECT_EQ(broken_invariant(), nullptr);
        if (below(4) == 0) expect_screen_shows_state(recorder);  // what is wrong there stays
    }
    EXPECT_EQ(wins.size(), 9U) << "everybody wins now and then";

    std::uint64_t signature = 0xcbf29ce484222325U;  // FNV-1a
    for (const char c : recorder.effects)
        signature = (signature ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
    if (const char* file = std::getenv("BRUSBO_EFFECTS")) std::ofstream(file) << recorder.effects;
    EXPECT_EQ(signature, 0xc524230123c847cdU)
        << "The effects are others, or in another order. This test writes them to the file that\n"
           "BRUSBO_EFFECTS in the environment names: compare those of the version before. If all\n"
           "that differs is meant, the new signature is 0x"
        << std::hex << signature;
}

}  // namespace
}  // namespace brusbo::test
