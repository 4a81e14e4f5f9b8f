#pragma once

#include <string_view>

namespace brusbo {

inline constexpr std::string_view ask_for_throw = "Slå genom att klicka på tärningen.";

/// Replaces the text of the message line; UTF-8.
void Med(std::string_view Meddelande);

/// Shows or hides both nest buttons.
void Val12(const bool& Index);

/// Ends the turn. Leaves the nest buttons as they are.
void Klar();

/// Grants the current player another throw.
void Tärning_6();

/// What follows a move: another throw after a 6, else the end of the turn.
void end_move();

/// A click on the next-player button: hands the die to the next player. Does nothing while the
/// button is hidden.
void butNästa_Click();

/// Shows whose turn it is, as a sentence and as a picture in the player's colour.
void Visa_tur();

/// Writes the current player's finished count to its label.
void show_finished_count();

}  // namespace brusbo
