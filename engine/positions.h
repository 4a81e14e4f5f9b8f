#pragma once

#include <iosfwd>

namespace brusbo {

/// The main window's loading step: fills `Positioner` from the file `brs.dat` in the current
/// directory, then the nest corners and the picture indexes of the players, and gives pieces,
/// markers and picture buttons their pictures.
///
/// A missing file is created, empty; a short one reads as zeros from its end on, and so does one
/// that knows no places. Throws std::system_error when the file is a directory or a pipe or can
/// neither be opened for reading and writing nor for reading alone; else as `read_positions`.
void Ladda_Positioner();

/// Fills `Positioner` from the records of a positions file. Throws std::runtime_error when a record
/// cannot be read, when its number does not fit in 32 bits, and when its length does not fit in the
/// record.
///
/// What is thrown is meant for players: Swedish, UTF-8, as in "brs.dat, post 57: kan inte läsas";
/// only why a file cannot be opened the platform says in its own words.
void read_positions(std::istream& file);

}  // namespace brusbo
