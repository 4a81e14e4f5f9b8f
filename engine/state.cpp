#include "engine/state.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace brusbo {

void reset_to_program_start() {
    Spelare = {};
    Positioner = {};
    Aktuell_spelare = Antal_spelare = Senaste_slag = 0;
    Har_flyttat = Ljud_på = Grattis_öppen = false;
    Annan_spelare = Annan_pjäs = 0;
    Tärning_enabled = true;
    butNästa_visible = butEn_pjäs_visible = butTvå_pjäser_visible = false;
    Pjäs_visible.fill(true);
    board_resets = 0;
}

// No right program takes the branches that tell of a fault, so no test asks for them.
namespace {

const char* broken_invariant_of(int player) {
    const Spelardata& data = Spelare[player];
    const auto on = [&](int square) { return std::ranges::count(data.Ruta, square); };
    if (data.Antal_i_boet != on(square_nest))
        return "Antal_i_boet differs from the pieces in the nest";
    if (data.Antal_klara != on(square_finished))
        return "Antal_klara differs from the finished pieces";
    for (int n = 1; n <= pieces_each; ++n) {
        const int square = data.Ruta[n];
        if ((square < 0 || square > 44) && square != square_finished) return "unknown square";
        if (Pjäs_visible[data.Bildnr[n - 1]] != (square != square_finished))
            return "a piece is hidden that has not finished, or the other way about";
    }
    if (player > Antal_spelare && data.Antal_i_boet != pieces_each)
        return "a piece of an unused slot has left its nest";
    return nullptr;
}

}  // namespace

const char* broken_invariant() {
    if (Antal_spelare < 2 || Antal_spelare > most_players) return "Antal_spelare outside 2..4";
    if (Aktuell_spelare < 1 || Aktuell_spelare > Antal_spelare)
        return "Aktuell_spelare takes no part";
    for (int player = 1; player <= most_players; ++player)
        if (const char* broken = broken_invariant_of(player)) return broken;

    const bool nest_buttons = butEn_pjäs_visible || butTvå_pjäser_visible;
    if (butTvå_pjäser_visible && !butEn_pjäs_visible) return "two-piece exit offered alone";
    if (Tärning_enabled && (butNästa_visible || nest_buttons)) return "die enabled beside a button";
    if (butNästa_visible && (nest_buttons || !Har_flyttat)) return "turn over with a move left";
    if (!Tärning_enabled && !butNästa_visible && Har_flyttat) return "no way on";
    const int in_nest = Spelare[Aktuell_spelare].Antal_i_boet;
    if ((butEn_pjäs_visible && in_nest < 1) || (butTvå_pjäser_visible && in_nest < 2))
        return "nest exit offered without a piece";
    return nullptr;
}

#ifdef BRUSBO_CHECKED
InvariantGuard::~InvariantGuard() {
    if (const char* broken = broken_invariant()) {
        std::fprintf(stderr, "broken invariant: %s\n", broken);
        std::abort();
    }
}
#endif

}  // namespace brusbo
