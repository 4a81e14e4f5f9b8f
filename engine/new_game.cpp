#include "engine/new_game.h"

#include "engine/markings.h"
#include "engine/pieces.h"
#include "engine/state.h"
#include "engine/turn.h"
#include "engine/world.h"

namespace brusbo {

void Nollställ_spelare() {
    for (Spelardata& player : Spelare) {
        player.Antal_i_boet = pieces_each;
        player.Antal_klara = 0;
    }
    Aktuell_spelare = 1;
    Har_flyttat = false;
    Move_BackShape();
}

void Återställ_spelplan() {
    ++board_resets;
    if (Grattis_öppen) {
        Grattis_öppen = false;
        services().close_Grattis();
    }
    for (int b = 0; b < piece_count; ++b) move_to_nest_place(b);
    for (Spelardata& player : Spelare) player.Ruta.fill(square_nest);
    for (int b = 0; b < piece_count; ++b) {
        screen().set_visible({Element::Plus, b}, false);
        Pjäs_visible[b] = true;
        screen().set_visible({Element::Pjäs, b}, true);
    }
    screen().move(Element::shpHålbak, 6, 8);
    Tärning_enabled = true;
    screen().set_enabled(Element::Tärning, true);
    butNästa_visible = false;
    screen().set_visible(Element::butNästa, false);
    Val12(false);
    Visa_tur();
    show_finished_count();
}

void Nytt_spel() {
    Nytt_snabbt();
    services().show_Startfrm();
}

void Nytt_snabbt() {
    Nollställ_spelare();
    Återställ_spelplan();
    Med(ask_for_throw);
}

}  // namespace brusbo
