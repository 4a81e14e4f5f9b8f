#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <string>

#include "tests/engine/recorder.h"

namespace brusbo::test {

using Click = std::function<void()>;
inline Click piece(int b) {
    return [b] { Pjäs_Click(static_cast<std::int16_t>(b)); };
}

/// One click in one situation.
struct Row {
    const char* purpose;
    /// "2 throws 6: 0 0 0 0 / 5 0 55 9": the current player, the throw (left out: none yet) and
    /// the squares of players 1, 2, ...; who is not named takes no part or is in the nest.
    const char* before;
    Click click;
    /// The effects as `Game::seen` gives them, and " => " with `Game::situation` if it changes.
    std::string result;
};

/// The first game of a run with the committed positions file, two players, sound on, as when the
/// main window opens. The effects so far are forgotten.
class Game : public testing::Test {
   protected:
    Game();

    /// Brings about a situation written as in `Row::before`, with a real throw.
    void set_up(const std::string& before);
    /// A click on the die, to throw this face.
    Click die(int face);
    void run(std::initializer_list<Row> rows);

    /// The effects since the last call, separated by "; ". Sequences and texts that come again and
    /// again have short names, only where they are complete and in order: "3 walks 1 2" is piece
    /// picture 3 on its way over these squares, "mark 3 on 2" its marker. "clear" is the hiding of
    /// all markers; hiding one once more is left out.
    std::string seen();

    /// "5 0 0 55 / 0 0 9 0, over": the squares of the players up to the last who is not in the
    /// nest; then what is awaited ("over": the next player) and the nest exits that are offered.
    static std::string situation();

    Recorder recorder;
};

}  // namespace brusbo::test
