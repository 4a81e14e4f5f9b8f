#pragma once

#include <cstdint>

namespace brusbo {

/// A click on piece picture `Index`. Does nothing when the picture is hidden or does not exist.
void Pjäs_Click(std::int16_t Index);

/// Whether a click on piece picture `Index`, 0..15, would move the piece now.
bool can_move(std::int16_t Index);

/// Walks the current player's piece `VPjäs`, 1..4, forward, one square at a time, then knocks home
/// whom it landed on and recomputes the stack markers. `antSteg` may be 0.
void Flytta(std::int16_t VPjäs, std::int16_t antSteg);

/// The same walk backwards.
void Flytta_bakåt(std::int16_t VPjäs, std::int16_t antSteg);

}  // namespace brusbo
