#include "engine/knocking.h"

#include "engine/pieces.h"
#include "engine/state.h"
#include "engine/turn.h"

namespace brusbo {

bool Pjäs_står_i_vägen(std::int16_t VPjäs) {
    const auto& Ruta = Spelare[Aktuell_spelare].Ruta;
    for (int k = 1; k < Senaste_slag; ++k)
        for (int j = 1; j <= pieces_each; ++j)
            if (j != VPjäs && Ruta[j] == Ruta[VPjäs] + k) return true;
    return false;
}

void Händelse_eller_inte(std::int16_t VPjäs) {
    const int landing = Spelare[Aktuell_spelare].Ruta[VPjäs];
    const std::int32_t x = Positioner[Aktuell_spelare][axis_x][landing];
    const std::int32_t y = Positioner[Aktuell_spelare][axis_y][landing];

    for (Annan_spelare = 1; Annan_spelare <= most_players; ++Annan_spelare) {
        if (Annan_spelare == Aktuell_spelare) continue;
        const Spelardata& other = Spelare[Annan_spelare];
        for (Annan_pjäs = 1; Annan_pjäs <= pieces_each; ++Annan_pjäs) {
            const int square = other.Ruta[Annan_pjäs];
            // The nest has no point: in a table of zeros it would seem to be everywhere.
            if (square == square_nest) continue;
            if (Positioner[Annan_spelare][axis_x][square] == x &&
                Positioner[Annan_spelare][axis_y][square] == y &&
                Pjäs_visible[other.Bildnr[Annan_pjäs - 1]])
                Flytta_pjäs_hem(Annan_spelare, Annan_pjäs);
        }
    }
}

void Flytta_pjäs_hem(const std::int16_t& Player, const std::int16_t& Index) {
    Spelardata& player = Spelare[Player];
    player.Ruta[Index] = square_nest;
    ++player.Antal_i_boet;
    move_to_nest_place(player.Bildnr[Index - 1]);
    Med("Du knuffade just hem en annans spelare!");
}

}  // namespace brusbo
