#pragma once

namespace brusbo {

/// Recomputes all sixteen stack markers: a piece's marker is shown exactly when the piece is
/// visible on the board and a lower-numbered piece of the same player shares its square.
void Uppdatera_plus();

/// Moves the turn highlight to the current player's nest and gives it that player's colour.
void Move_BackShape();

}  // namespace brusbo
