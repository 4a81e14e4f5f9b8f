#pragma once

#include "engine/screen.h"

namespace brusbo {

/// A click on the next-player button: hands the die to the next player. Does nothing while the
/// button is hidden.
void butNästa_Click();

/// Shows whose turn it is, as a sentence and as a picture in the player's colour.
void Visa_tur();

/// Writes the current player's finished count to its label.
void show_finished_count();

/// The picture of a player's pieces; player 1..4.
StorePicture piece_picture(int player);

}  // namespace brusbo
