#pragma once

#include <cstdint>

namespace brusbo {

inline constexpr int pause_between_pictures = 200;  ///< milliseconds

/// A click on the die: throws, stores the throw and tells the player what it allows. Does nothing
/// while the die is disabled.
void Tärning_Click();

/// Runs the six-step animation and returns the face it ends on, 1..6.
std::int16_t Slå_tärning();

/// Gives the die the picture of face `Slag`, 1..6.
void Visa_tärning(const std::uint8_t& Slag);

/// Looks at the throw and the current player's nest: writes one message, offers the nest exits that
/// apply, or ends the turn.
void Efter_slag();

}  // namespace brusbo
