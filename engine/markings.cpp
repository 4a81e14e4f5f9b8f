#include "engine/markings.h"

#include "engine/state.h"
#include "engine/world.h"

namespace brusbo {

namespace {

void mark_stack(int player, int piece) {
    const Spelardata& data = Spelare[player];
    const std::int16_t square = data.Ruta[piece];
    if (square == square_nest) return;
    const int picture = data.Bildnr[piece - 1];
    const ElementId marker = {Element::Plus, picture};
    for (int lower = 1; lower < piece; ++lower) {
        if (data.Ruta[lower] != square) {
            screen().set_visible(marker, false);
        } else if (Pjäs_visible[picture]) {
            screen().move(marker, Positioner[player][axis_x][square],
                          Positioner[player][axis_y][square]);
            screen().set_visible(marker, true);
            return;
        }
    }
}

}  // namespace

void Uppdatera_plus() {
    for (int b = 0; b < piece_count; ++b) screen().set_visible({Element::Plus, b}, false);
    for (int player = 1; player <= most_players; ++player)
        for (int piece = 1; piece <= pieces_each; ++piece) mark_stack(player, piece);
}

void Move_BackShape() {
    struct Highlight {
        std::int32_t left, top;  // pixels of the board picture
        Colour colour;
    };
    static constexpr IndexedArray<Highlight, 1, most_players> highlights = [] {
        IndexedArray<Highlight, 1, most_players> table;
        table[1] = {6, 8, {128, 0, 0}};
        table[2] = {244, 8, {0, 0, 128}};
        table[3] = {244, 246, {0, 128, 0}};
        table[4] = {6, 246, {192, 192, 0}};
        return table;
    }();

    if (Aktuell_spelare < 1 || Aktuell_spelare > most_players) return;
    const Highlight& highlight = highlights[Aktuell_spelare];
    screen().move(Element::shpHålbak, highlight.left, highlight.top);
    screen().set_fill_colour(Element::shpHålbak, highlight.colour);
}

}  // namespace brusbo
