// Whole games with fixed seeds: legal clicks until somebody wins, illegal ones in between.

#include <algorithm>
#include <set>
#include <tuple>

#include "tests/engine/game.h"

namespace brusbo::test {
namespace {

/// All of the state that an ignored or refused click must leave alone.
auto snapshot() {
    return std::tuple(Spelare, Positioner, Aktuell_spelare, Antal_spelare, Har_flyttat,
                      Senaste_slag, Tärning_enabled, butNästa_visible, butEn_pjäs_visible,
                      butTvå_pjäser_visible, Pjäs_visible);
}

// What the games below are checked by has to see a fault itself.
TEST_F(Game, BrokenInvariantsAreSeen) {
    struct Fault {
        const char* before;
        void (*make)();
    };
    const Fault faults[] = {
        {"1: 0 0 0 0", [] { Antal_spelare = 1; }},
        {"1: 0 0 0 0", [] { Aktuell_spelare = 3; }},
        {"1: 0 5 0 0", [] { ++Spelare[1].Antal_i_boet; }},
        {"1: 0 5 0 0", [] { ++Spelare[1].Antal_klara; }},
        {"1: 0 5 0 0", [] { Spelare[1].Ruta[2] = square_goal; }},
        {"1: 0 5 0 0", [] { Pjäs_visible[1] = false; }},
        {"1: 0 55 0 0", [] { Pjäs_visible[1] = true; }},
        {"2: 0 0 0 0 / 0 0 0 0 / 7 0 0 0", [] { Antal_spelare = 2; }},
        {"1: 0 0 0 0", [] { butNästa_visible = true; }},
        {"1 throws 3: 0 0 0 0", [] { butNästa_visible = false; }},
        {"1 throws 3: 0 0 0 0", [] { Har_flyttat = false; }},
        {"1 throws 3: 7 0 0 0", [] { Har_flyttat = true; }},
        {"1 throws 6: 0 0 0 0", [] { butEn_pjäs_visible = false; }},
        {"1 throws 6: 0 7 8 9", [] { butTvå_pjäser_visible = true; }},
        {"1 throws 3: 7 7 7 7", [] { butEn_pjäs_visible = true; }},
    };
    for (const Fault& fault : faults) {
        set_up(fault.before);
        ASSERT_EQ(broken_invariant(), nullptr) << fault.before;
        fault.make();
        EXPECT_NE(broken_invariant(), nullptr) << fault.before << ", " << &fault - faults;
    }
}

class RandomPlay : public Game, public testing::WithParamInterface<int> {
   protected:
    int below(int count) { return static_cast<int>(generator_() % static_cast<unsigned>(count)); }

    static bool can_walk(int player, int piece) {
        const auto& Ruta = Spelare[player].Ruta;
        if (Ruta[piece] == 0 || Ruta[piece] == 55) return false;
        return std::ranges::none_of(Ruta, [&](int other) {
            return other > Ruta[piece] && other < Ruta[piece] + Senaste_slag;
        });
    }

    /// One of the clicks that the rules allow now; there always is one.
    void click_legally() {
        if (butNästa_visible) return butNästa_Click();
        if (Tärning_enabled) return Tärning_Click();
        std::vector<int> choices;
        for (int n = 1; n <= pieces_each; ++n)
            if (can_walk(Aktuell_spelare, n)) choices.push_back(n);
        if (butEn_pjäs_visible) choices.push_back(5);
        if (butTvå_pjäser_visible) choices.push_back(6);
        ASSERT_FALSE(choices.empty()) << squares() << ", " << turn_state();
        const int choice =
            choices[static_cast<std::size_t>(below(static_cast<int>(choices.size())))];
        if (choice == 5) return butEn_pjäs_Click();
        if (choice == 6) return butTvå_pjäser_Click();
        Pjäs_Click(static_cast<std::int16_t>(4 * (Aktuell_spelare - 1) + choice - 1));
    }

    /// A click that the rules ignore or refuse, whichever of them comes up; it changes no state.
    void click_illegally() {
        const auto before = snapshot();
        const int where = below(20);
        if (where < 16) {
            const bool own = where / 4 + 1 == Aktuell_spelare;
            if (own && !Har_flyttat && can_walk(Aktuell_spelare, where % 4 + 1)) return;
            Pjäs_Click(static_cast<std::int16_t>(where));
        } else if (where == 16 && !Tärning_enabled) {
            Tärning_Click();
        } else if (where == 17 && !butNästa_visible) {
            butNästa_Click();
        } else if (where == 18 && !butEn_pjäs_visible) {
            butEn_pjäs_Click();
        } else if (where == 19 && !butTvå_pjäser_visible) {
            butTvå_pjäser_Click();
        }
        ASSERT_EQ(snapshot() == before, true) << "click " << where;
    }

    /// Compares what has been shown with what the state says should be seen.
    void expect_screen_shows_state() {
        for (int p = 1; p <= most_players; ++p) {
            std::set<int> stacks, marked;
            for (int n = 1; n <= pieces_each; ++n) {
                const int square = Spelare[p].Ruta[n];
                const int b = 4 * (p - 1) + n - 1;
                const std::string piece = Recorder::name({Element::Pjäs, b});
                const std::string marker = Recorder::name({Element::Plus, b});
                if (recorder.visible.contains(piece)) {
                    ASSERT_EQ(recorder.visible[piece], square != 55) << piece;
                }
                const std::pair point(Positioner[p][axis_x][square], Positioner[p][axis_y][square]);
                const std::pair nest(p == 2 || p == 3 ? 274 : 36, p == 1   ? 34
                                                                  : p == 2 ? 34
                                                                  : p == 3 ? 272
                                                                           : 274);
                const std::pair home(nest.first + n % 2 * -42 + 42, nest.second + n / 3 * 42);
                if (square != 55 && recorder.places.contains(piece)) {
                    ASSERT_EQ(recorder.places[piece], square == 0 ? home : point) << piece;
                }
                if (square > 0 && square < 45 && std::ranges::count(Spelare[p].Ruta, square) > 1)
                    stacks.insert(square);
                if (recorder.visible[marker]) {
                    ASSERT_EQ(recorder.places[marker], point) << marker;
                    marked.insert(square);
                }
            }
            ASSERT_EQ(marked, stacks) << "player " << p;
        }
    }

    std::mt19937 generator_{20240607};
};

TEST_P(RandomPlay, ToTheEnd) {
    Antal_spelare = static_cast<std::int16_t>(GetParam());
    recorder.keep_effects = false;
    int wins = 0;
    std::set<int> winners;
    recorder.at_Startfrm = [] { Nollställ_spelare(); };
    recorder.at_Grattis = [&] {
        ++wins;
        winners.insert(Aktuell_spelare);
        EXPECT_EQ(Spelare[Aktuell_spelare].Antal_klara, 4);
        if (below(2) == 0) return Nytt_spel();
        Grattis_öppen = true;
        Nytt_snabbt();
    };
    int clicks = 0;
    while (wins < 40) {
        ASSERT_LT(++clicks, 400'000) << "games do not end";
        if (below(3) == 0)
            click_illegally();
        else if (below(4000) == 0)
            Nytt_snabbt();
        else
            click_legally();
        ASSERT_EQ(broken_invariant(), nullptr) << "click " << clicks;
        expect_screen_shows_state();
        if (HasFailure()) return;
    }
    EXPECT_EQ(static_cast<int>(winners.size()), GetParam()) << "everybody wins now and then";
    EXPECT_EQ(*winners.rbegin(), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Players, RandomPlay, testing::Values(2, 3, 4));

}  // namespace
}  // namespace brusbo::test
