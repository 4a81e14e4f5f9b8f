#include "engine/pieces.h"

#include <cassert>

#include "engine/state.h"
#include "engine/world.h"

namespace brusbo {

std::int16_t Vilken_pjäs(std::int16_t Index) {
    if (Index < 0 || Index >= piece_count) return 0;
    return static_cast<std::int16_t>(Index / pieces_each + 1);
}

std::int16_t Pjäsen(std::int16_t Index) {
    if (Index < 0 || Index >= piece_count) return 0;
    return static_cast<std::int16_t>(Index % pieces_each + 1);
}

StorePicture piece_picture(int player) {
    assert(player >= 1 && player <= most_players);
    return {static_cast<Store>(static_cast<int>(Store::gimgRöd) + player - 1), 0};
}

void move_to_nest_place(int b) {
    constexpr int apart = 42;  // pixels
    const Spelardata& owner = Spelare[b / pieces_each + 1];
    screen().move({Element::Pjäs, b}, owner.Bo_x + apart * (b % 2),
                  owner.Bo_y + apart * (b % pieces_each / 2));
}

}  // namespace brusbo
