#include "engine/moves.h"

#include "engine/die.h"
#include "engine/knocking.h"
#include "engine/markings.h"
#include "engine/pieces.h"
#include "engine/spela_ljud.h"
#include "engine/state.h"
#include "engine/turn.h"
#include "engine/world.h"

namespace brusbo {

namespace {

/// Whether a click on the piece makes a move; tells the player when something stands in the way.
bool accepts_click(std::int16_t Index) {
    if (can_move(Index)) return true;
    if (Vilken_pjäs(Index) != Aktuell_spelare) return false;
    if (Spelare[Aktuell_spelare].Ruta[Pjäsen(Index)] == square_nest)
        services().beep();
    else if (!Har_flyttat)
        Med("Du kan inte flytta pjäsen, en av dina egna pjäser står i vägen, flytta först den "
            "spelpjäsen.");
    return false;
}

void bounce(std::int16_t piece) {
    const auto up = static_cast<std::int16_t>(square_goal - Spelare[Aktuell_spelare].Ruta[piece]);
    Flytta(piece, up);
    Flytta_bakåt(piece, static_cast<std::int16_t>(Senaste_slag - up));
    Med("Du studsade, för att ta dig ut måste du komma ut jämnt. Så har du inget mer.");
}

/// Walks the piece into the goal. Returns false when a new game was started from the winner
/// window: the move then belongs to a game that is over.
bool finish(std::int16_t Index, std::int16_t piece) {
    Spelardata& player = Spelare[Aktuell_spelare];
    Flytta(piece, Senaste_slag);
    ++player.Antal_klara;
    if (player.Antal_klara < pieces_each) {
        Med("Grattis, en till pjäs har lämnat spelområdet!");
    } else {
        const std::uint32_t resets_before = board_resets;
        services().show_Grattis();
        if (board_resets != resets_before) return false;
    }
    Pjäs_visible[Index] = false;
    screen().set_visible({Element::Pjäs, Index}, false);
    player.Ruta[piece] = square_finished;
    return true;
}

/// Makes the move that the throw allows; false as for `finish`.
bool move_piece(std::int16_t Index) {
    const std::int16_t piece = Pjäsen(Index);
    const int target = Spelare[Aktuell_spelare].Ruta[piece] + Senaste_slag;
    if (target == square_goal) return finish(Index, piece);
    if (target < square_goal)
        Flytta(piece, Senaste_slag);
    else
        bounce(piece);
    return true;
}

void walk(std::int16_t VPjäs, std::int16_t antSteg, std::int16_t direction) {
    const int player = Aktuell_spelare;
    std::int16_t& square = Spelare[player].Ruta[VPjäs];
    const ElementId picture = {Element::Pjäs, Spelare[player].Bildnr[VPjäs - 1]};
    for (int step = 0; step < antSteg; ++step) {
        Spela_ljud(sound_step);
        square = static_cast<std::int16_t>(square + direction);
        screen().move(picture, Positioner[player][axis_x][square],
                      Positioner[player][axis_y][square]);
        services().pause(pause_between_pictures);
    }
    Händelse_eller_inte(VPjäs);
    Uppdatera_plus();
}

}  // namespace

void Pjäs_Click(std::int16_t Index) {
    if (Index < 0 || Index >= piece_count || !Pjäs_visible[Index]) return;
    const InvariantGuard guard;

    Spela_ljud(sound_click);
    if (accepts_click(Index)) {
        if (!move_piece(Index)) return;
        end_move();
    }
    show_finished_count();
}

bool can_move(std::int16_t Index) {
    if (Vilken_pjäs(Index) != Aktuell_spelare || !Pjäs_visible[Index]) return false;
    const std::int16_t piece = Pjäsen(Index);
    return Spelare[Aktuell_spelare].Ruta[piece] != square_nest && !Har_flyttat &&
           !Pjäs_står_i_vägen(piece);
}

void Flytta(std::int16_t VPjäs, std::int16_t antSteg) { walk(VPjäs, antSteg, +1); }

void Flytta_bakåt(std::int16_t VPjäs, std::int16_t antSteg) { walk(VPjäs, antSteg, -1); }

}  // namespace brusbo
