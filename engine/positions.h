#pragma once

#include <cstdint>
#include <iosfwd>
#include <string_view>

namespace brusbo {

/// The main window's loading step: fills `Positioner` from the file `brs.dat` in the current
/// directory, then the nest corners and the picture indexes of the players, and gives pieces,
/// markers and picture buttons their pictures.
///
/// A missing file is created, empty; a short one reads as zeros from its end on. Throws
/// std::system_error with the platform's message when the file can neither be opened for reading
/// and writing nor for reading alone or cannot be read at any place, when a number does not fit in
/// 32 bits, and when a record's length does not fit in the record.
void Ladda_Positioner();

/// Fills `Positioner` from the records of a positions file; throws as above.
void read_positions(std::istream& file);

/// The number that a text starts with, rounded to the nearest whole number, halves to the even
/// neighbour; 0 for a text that starts with no number. Blanks, tabs and line feeds count for
/// nothing anywhere. Throws std::system_error (result_out_of_range) for a number outside 32 bits.
std::int32_t whole_number(std::string_view text);

}  // namespace brusbo
