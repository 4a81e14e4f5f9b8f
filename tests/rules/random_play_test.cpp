// Whole games with a fixed seed, legal and illegal clicks, and one number that stands for every
// effect of all of them.

#include <cstdlib>
#include <fstream>

#include "tests/rules/recorder.h"

namespace brusbo::test {
namespace {

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
