#pragma once

#include <cstdint>

#include "engine/screen.h"

namespace brusbo {

/// The owner of a piece picture, 1..4; 0 for an index outside 0..15.
std::int16_t Vilken_pjäs(std::int16_t Index);

/// The number of a piece picture within its owner, 1..4; 0 for an index outside 0..15.
std::int16_t Pjäsen(std::int16_t Index);

/// The picture of a player's pieces; player 1..4.
StorePicture piece_picture(int player);

/// Places piece picture b, 0..15, at its fixed place in its owner's nest.
void move_to_nest_place(int b);

}  // namespace brusbo
