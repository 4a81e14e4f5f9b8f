#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <string>

#include "tests/engine/recorder.h"

namespace brusbo::test {

/// A new directory that is the current one while the object lives.
class Workplace {
   public:
    Workplace();
    ~Workplace();
    Workplace(const Workplace&) = delete;
    Workplace& operator=(const Workplace&) = delete;

   private:
    std::filesystem::path path_, before_;
};

inline const std::filesystem::path good_positions = BRUSBO_ASSETS "/data/brs.dat";

/// One click in one situation.
struct Row {
    const char* purpose;
    /// "2 throws 6: 0 0 0 0 / 5 0 55 9": the current player, the throw (left out: none yet) and
    /// the squares of players 1, 2, ...; who is not named takes no part or is in the nest.
    const char* before;
    /// An element, as "Pjäs(3)"; "Tärning 6" for a throw of 6.
    const char* click;
    /// As `Game::seen` gives them.
    const char* effects;
    /// "55 0 0 0 / 5 0 0 0, turn over": the squares, then `Game::turn_state`; "" as it was.
    const char* after;
};

/// The first game of a run with the committed positions file, two players, sound on, as when the
/// main window opens. The effects so far are forgotten.
class Game : public testing::Test {
   protected:
    Game();

    /// Brings about a situation written as in `Row::before`, with a real throw.
    void set_up(const std::string& before);
    void click(const std::string& element);
    void run(std::initializer_list<Row> rows);

    /// The effects since the last call, with the sequences that every move is made of under short
    /// names, only where they are complete and in order. "clear markers" is the hiding of all
    /// markers, with any repetition that follows.
    std::string seen();

    static std::string squares();  ///< as in `Row::after`
    /// "throw awaited", "move awaited" or "turn over" ; then ", moved" or ", new" where
    /// `Har_flyttat` is not as usual in that state; then the buttons offered.
    static std::string turn_state();
    /// All pieces in their nests, player 1 to throw.
    static void expect_fresh_game();

    Recorder recorder;
};

}  // namespace brusbo::test
