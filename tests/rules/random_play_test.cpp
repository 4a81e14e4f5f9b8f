// Whole games with a fixed seed, legal and illegal clicks, and one number that stands for every
// effect of all of them.

#include <cstdlib>
#include <fstream>

#include "tests/rules/recorder.h"

namespace brusbo::test {
namespace {

// What the games below are checked by has to see a fault itself.
TEST_F(Game, BrokenInvariantsAreSeen) {
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
}

TEST_F(Game, Signature) {
    std::mt19937 generator(20240607);
    const auto below = [&](unsigned count) { return static_cast<int>(generator() % count); };
    int games = 0;
    recorder.at_Startfrm = [&] {
        Nollställ_spelare();
        Antal_spelare = static_cast<std::int16_t>(games % 3 + 2);
        Ljud_på = below(4) != 0;
    };
    recorder.at_Grattis = [&] {
        ++games;
        const int choice = below(3);
        Grattis_öppen = choice == 1;
        if (choice != 0) Nytt_spel();
    };
    static constexpr void (*buttons[])() = {Tärning_Click, butNästa_Click, butEn_pjäs_Click,
                                            butTvå_pjäser_Click};
    for (Nytt_spel(); games < 90 && !HasFailure();) {
        ASSERT_LT(recorder.effects.tellp(), 200'000'000) << "games do not end";
        const bool won = Spelare[Aktuell_spelare].Antal_klara == 4;
        if (won || below(10'000) == 0) won ? Nytt_spel() : Nytt_snabbt();
        // Mostly own pieces: another's is always refused.
        const int any = below(16), kind = below(8);
        const int own = 4 * (Aktuell_spelare - 1) + any % 4;
        const auto piece = static_cast<std::int16_t>(kind < 5 ? any : own);
        const auto before = recorder.effects.view().size();
        const bool moves = kind >= 4 && can_move(piece);
        kind < 4 ? buttons[kind]() : Pjäs_Click(piece);
        const bool walked = recorder.effects.view().find("pause", before) != std::string::npos;
        EXPECT_TRUE(kind < 4 || moves == walked);
        EXPECT_EQ(broken_invariant(), nullptr);
    }

    std::uint64_t signature = 0xcbf29ce484222325U;  // FNV-1a
    for (const char c : recorder.effects.view())
        signature = (signature ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
    if (const char* file = std::getenv("BRUSBO_EFFECTS"))
        std::ofstream(file) << recorder.effects.view();
    EXPECT_EQ(signature, 0xae08c78c817ce364U)
        << "The effects or their order differ from the version's before: compare the files that "
           "this\n"
           "test writes where BRUSBO_EFFECTS says. The new signature is 0x"
        << std::hex << signature;
}

}  // namespace
}  // namespace brusbo::test
