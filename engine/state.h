#pragma once

#include <cstdint>
#include <string>

#include "engine/indexed_array.h"

// The whole state of the game. It has no owner and no accessors: the rules, the windows and the
// tests read and write it directly, all on one thread.
namespace brusbo {

inline constexpr int most_players = 4;
inline constexpr int pieces_each = 4;
inline constexpr int piece_count = most_players * pieces_each;

// Square numbers, counted along the owner's path.
inline constexpr std::int16_t square_nest = 0;
inline constexpr std::int16_t square_goal = 45;      ///< a piece that reaches it leaves at once
inline constexpr std::int16_t square_finished = 55;  ///< the piece has left the board

struct Spelardata {
    std::string Namn;       ///< UTF-8, at most ten characters, may be empty
    std::int32_t Bo_x = 0;  ///< the nest's top-left place, pixels of the board picture
    std::int32_t Bo_y = 0;
    /// 0 nest, 1..40 the ring from the own entry square, 41..44 the home lane, 45 goal, 55
    /// finished.
    IndexedArray<std::int16_t, 1, pieces_each> Ruta;
    /// Piece n is shown by `Pjäs`(`Bildnr`(n - 1)).
    IndexedArray<std::uint8_t, 0, pieces_each - 1> Bildnr;
    std::uint8_t Antal_klara = 0;
    std::uint8_t Antal_i_boet = 0;

    bool operator==(const Spelardata&) const = default;
};

inline IndexedArray<Spelardata, 1, most_players> Spelare;

enum : int { axis_x = 1, axis_y = 2 };

/// `Positioner`[player][axis][square]: left and top, in pixels of the board picture, of a piece's
/// picture on a square of a player's path. Squares 0 and 46..55 stay 0.
inline IndexedArray<IndexedArray<IndexedArray<std::int32_t, 0, square_finished>, axis_x, axis_y>, 1,
                    most_players>
    Positioner;

// The turn.
inline std::int16_t Aktuell_spelare = 0;  ///< 1..`Antal_spelare` once a start window was active
inline std::int16_t Antal_spelare = 0;    ///< 2..4
inline bool Har_flyttat = false;          ///< the latest throw has had its move; no piece may move
inline std::int16_t Senaste_slag = 0;     ///< the latest throw, 1..6; 0 before the first of a run
inline bool Ljud_på = false;
inline bool Grattis_öppen = false;  ///< the next board reset closes the winner window

// The landing check's loop variables: the other player and that player's piece, 1..4.
inline std::int16_t Annan_spelare = 0;
inline std::int16_t Annan_pjäs = 0;

// What the rules have told the main window's controls and have to know again. A handler of an
// element that is hidden or disabled here does nothing.
inline bool Tärning_enabled = true;
inline bool butNästa_visible = false;
inline bool butEn_pjäs_visible = false;
inline bool butTvå_pjäser_visible = false;
inline auto Pjäs_visible = IndexedArray<bool, 0, piece_count - 1>::filled(true);

/// Counts the board resets, so that a move that was interrupted by a new game can tell.
inline std::uint32_t board_resets = 0;

/// Puts every variable above back to what it is when the program starts, before any window is
/// loaded: numbers 0, names empty, flags False; the controls as the layout has them.
void reset_to_program_start();

/// The first broken invariant in words, or nullptr. The invariants hold whenever no handler runs,
/// from the first activation of the start window on: nest and finished counts agree with the
/// squares, only known squares occur, a piece is hidden exactly when it has finished, slots
/// without a player rest in their nests, the current player takes part, and the controls offer
/// exactly one way on.
const char* broken_invariant();

/// Stands first in a handler; in checked builds (BRUSBO_CHECKED) it stops the program when the
/// handler leaves an invariant broken.
class InvariantGuard {
   public:
    InvariantGuard() = default;
    InvariantGuard(const InvariantGuard&) = delete;
    InvariantGuard& operator=(const InvariantGuard&) = delete;
#ifdef BRUSBO_CHECKED
    ~InvariantGuard();
#else
    ~InvariantGuard() {}
#endif
};

}  // namespace brusbo
