#include "engine/nest.h"

#include <cassert>

#include "engine/moves.h"
#include "engine/spela_ljud.h"
#include "engine/state.h"
#include "engine/turn.h"

namespace brusbo {

namespace {

/// The current player's highest-numbered piece in the nest; 0 without one.
std::int16_t last_piece_in_nest() {
    std::int16_t chosen = 0;
    for (std::int16_t n = 1; n <= pieces_each; ++n)
        if (Spelare[Aktuell_spelare].Ruta[n] == square_nest) chosen = n;
    return chosen;
}

void walk_out(std::int16_t squares) {
    const std::int16_t piece = last_piece_in_nest();
    assert(piece != 0);
    --Spelare[Aktuell_spelare].Antal_i_boet;
    Flytta(piece, squares);
}

}  // namespace

void butEn_pjäs_Click() {
    if (!butEn_pjäs_visible) return;
    const InvariantGuard guard;

    Spela_ljud(sound_click);
    walk_out(Senaste_slag);
    end_move();
}

void butTvå_pjäser_Click() {
    if (!butTvå_pjäser_visible) return;
    const InvariantGuard guard;

    Spela_ljud(sound_click);
    walk_out(1);
    walk_out(1);
    Klar();
    Val12(false);
}

}  // namespace brusbo
