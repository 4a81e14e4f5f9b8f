#pragma once

#include <cstdint>

namespace brusbo {

/// Whether another piece of the current player stands strictly between piece `VPjäs`, 1..4, and
/// the square that the throw would take it to.
bool Pjäs_står_i_vägen(std::int16_t VPjäs);

/// The landing check after a walk of the current player's piece `VPjäs`, 1..4: knocks home every
/// other player's visible piece on its square.
void Händelse_eller_inte(std::int16_t VPjäs);

/// Puts piece `Index`, 1..4, of player `Player`, 1..4, back into its nest. The arguments keep
/// their values.
void Flytta_pjäs_hem(const std::int16_t& Player, const std::int16_t& Index);

}  // namespace brusbo
