// Whole games with fixed seeds: legal clicks until somebody wins, illegal ones in between.

#include <algorithm>
#include <set>
#include <tuple>
#include <vector>

#include "tests/engine/game.h"

namespace brusbo::test {
namespace {

// What the games below are checked by has to see a fault itself.
TEST_F(Game, BrokenInvariantsAreSeen) {
    void (*const faults[])() = {
        [] { Antal_spelare = 1; },
        [] { Antal_spelare = 2; },
        [] { Aktuell_spelare = 4; },
        [] { ++Spelare[1].Antal_i_boet; },
        [] { ++Spelare[1].Antal_klara; },
        [] { Spelare[1].Ruta[2] = square_goal; },
        [] { Pjäs_visible[2] = true; },
        [] { Har_flyttat = true, Val12(false); },
        [] { Tärning_enabled = true; },
        [] { butNästa_visible = true; },
        [] { butEn_pjäs_visible = false; },
        [] { Spelare[1].Ruta[1] = Spelare[1].Antal_i_boet = 1; },
    };
    for (const auto& fault : faults) {
        set_up("1 throws 6: 0 5 55 0 / 0 0 0 0 / 7 0 0 0");
        ASSERT_EQ(broken_invariant(), nullptr);
        fault();
        EXPECT_NE(broken_invariant(), nullptr) << "fault " << &fault - faults;
    }
}

class RandomPlay : public Game, public testing::WithParamInterface<int> {
   protected:
    int below(int count) { return static_cast<int>(generator_() % static_cast<unsigned>(count)); }

    static bool can_walk(int b) {
        const auto& Ruta = Spelare[Aktuell_spelare].Ruta;
        const int from = Ruta[b % 4 + 1];
        return b / 4 + 1 == Aktuell_spelare && !Har_flyttat && from != 0 && from != 55 &&
               std::ranges::none_of(
                   Ruta, [&](int other) { return other > from && other < from + Senaste_slag; });
    }

    /// All clicks that the rules make something of now, or all that they ignore or refuse.
    static std::vector<Click> clicks(bool legal) {
        std::vector<Click> result;
        const auto add = [&](bool offered, const Click& click) {
            if (offered == legal) result.push_back(click);
        };
        for (int b = 0; b < piece_count; ++b) add(can_walk(b), piece(b));
        add(Tärning_enabled, Tärning_Click);
        add(butNästa_visible, butNästa_Click);
        add(butEn_pjäs_visible, butEn_pjäs_Click);
        add(butTvå_pjäser_visible, butTvå_pjäser_Click);
        return result;
    }

    static auto state() {
        return std::tuple(Spelare, Aktuell_spelare, Antal_spelare, Har_flyttat, Senaste_slag,
                          Tärning_enabled, butNästa_visible, butEn_pjäs_visible,
                          butTvå_pjäser_visible, Pjäs_visible);
    }

    void expect_screen_shows_state() {
        for (int b = 0; b < piece_count; ++b) {
            const bool finished = square_of(b) == square_finished;
            const std::string piece = Recorder::name({Element::Pjäs, b});
            const std::string marker = Recorder::name({Element::Plus, b});
            ASSERT_EQ(recorder.visible[piece], !finished) << piece;
            ASSERT_TRUE(finished || recorder.places[piece] == place_of(b)) << piece;
            ASSERT_EQ(recorder.visible[marker], is_marked(b)) << marker;
            ASSERT_TRUE(!is_marked(b) || recorder.places[marker] == place_of(b)) << marker;
        }
    }

    std::mt19937 generator_{20240607};
};

TEST_P(RandomPlay, ToTheEnd) {
    Antal_spelare = static_cast<std::int16_t>(GetParam());
    recorder.keep_effects = false;
    Nytt_snabbt();
    int wins = 0;
    std::set<int> winners;
    recorder.at_Grattis = [&] {
        ++wins;
        winners.insert(Aktuell_spelare);
        EXPECT_EQ(Spelare[Aktuell_spelare].Antal_klara, 4);
        if (below(2) == 0) return Nytt_spel();
        Grattis_öppen = true;
        Nytt_snabbt();
    };
    for (int click = 1; wins < 40; ++click) {
        ASSERT_LT(click, 400'000) << "games do not end";
        if (below(4000) == 0) Nytt_snabbt();
        const bool legal = below(3) != 0;
        const auto choices = clicks(legal);
        ASSERT_FALSE(choices.empty()) << situation();
        const auto before = state();
        choices[static_cast<std::size_t>(below(static_cast<int>(choices.size())))]();
        ASSERT_TRUE(legal || state() == before) << "click " << click;
        ASSERT_EQ(broken_invariant(), nullptr) << "click " << click;
        expect_screen_shows_state();
        if (HasFailure()) return;
    }
    EXPECT_EQ(static_cast<int>(winners.size()), GetParam()) << "everybody wins now and then";
}

INSTANTIATE_TEST_SUITE_P(Players, RandomPlay, testing::Values(2, 3, 4));

}  // namespace
}  // namespace brusbo::test
