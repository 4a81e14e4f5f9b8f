#pragma once

namespace brusbo {

/// The players reset: full nests, nobody finished, player 1's turn. Runs each time the start
/// window becomes active and at the start of every new game. Leaves the squares as they are.
void Nollställ_spelare();

/// The board reset: pieces into their nests, markers and buttons hidden, die enabled, turn shown.
void Återställ_spelplan();

/// A full new game; returns when the start window, which it shows, has been left.
void Nytt_spel();

/// A new game with the same players at once.
void Nytt_snabbt();

}  // namespace brusbo
