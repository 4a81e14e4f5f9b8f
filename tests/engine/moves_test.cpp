// Clicks on pieces and what comes of them: moves, knocks, markers, finishing and winning.

#include "tests/engine/game.h"

namespace brusbo::test {
namespace {

using Moves = Game;

TEST_F(Moves, RefusedClicks) {
    run({
        {"another's", "1 throws 4: 9 0 55 0 / 3 0 0 0", piece(4), "click; count 1"},
        {"own in the nest", "1 throws 1: 9 0 0 0", piece(3), "click; beep; count 0"},
        {"own, no throw", "1: 9 0 0 0", piece(0), "click; count 0"},
        {"before the next own", "1 throws 2: 7 8 0 0", piece(0), "click; tell block; count 0"},
        {"own before the goal of a bounce", "2 throws 6: 0 0 0 0 / 44 43 55 0", piece(5),
         "click; tell block; count 1"},
    });
}

TEST_F(Moves, OnTheBoard) {
    run({
        {"on the ring, on to an own piece", "1 throws 2: 8 10 0 0", piece(0),
         "click; 0 walks 9 10; clear; mark 1 on 10; end turn; count 0 => 10 10 0 0, over"},
        {"a 6 into the home lane", "1 throws 6: 0 38 0 55", piece(1),
         "click; 1 walks 39 40 41 42 43 44; clear; throw again; count 1 => 0 44 0 55, throw"},
        {"a 1 is never blocked", "1 throws 1: 8 8 7 7", piece(2),
         "click; 2 walks 8; clear; mark 1 on 8; mark 2 on 8; end turn; count 0 => 8 8 8 7, over"},
        {"a bounce to the same square", "1 throws 4: 43 0 0 0", piece(0),
         "click; 0 walks 44 45; clear; 0 walks 44 43; clear; tell bounce; end turn; count 0 "
         "=> 43 0 0 0, over"},
        {"a bounce past own pieces that knocks", "1 throws 6: 44 41 43 55 / 30 0 0 0", piece(0),
         "click; 0 walks 45; clear; 0 walks 44 43 42 41 40; knock 4; clear; tell bounce; throw "
         "again; count 1 "
         "=> 40 41 43 55, throw"},
        {"44 finishes with a 1", "1 throws 1: 44 0 0 55", piece(0),
         "click; 0 walks 45; clear; tell finish; hide Pjäs(0); end turn; count 2 "
         "=> 55 0 0 55, over"},
    });
}

TEST_F(Moves, Knocks) {
    run({
        {"not those passed over or ahead", "1 throws 2: 3 0 0 0 / 34 36 0 35", piece(0),
         "click; 0 walks 4 5; knock 7; clear; end turn; count 0 => 5 0 0 0 / 34 36 0 0, over"},
        {"a stack, on its entry square", "3 throws 1: 1 0 1 1 / 0 0 0 0 / 20 0 0 0", piece(8),
         "click; 8 walks 21; knock 0; knock 2; knock 3; clear; end turn; count 0 "
         "=> 0 0 0 0 / 0 0 0 0 / 21 0 0 0, over"},
        {"all others", "4 throws 1: 30 0 0 0 / 0 20 0 0 / 0 0 0 10 / 39 0 0 0", piece(12),
         "click; 12 walks 40; knock 0; knock 5; knock 11; clear; end turn; count 0 "
         "=> 0 0 0 0 / 0 0 0 0 / 0 0 0 0 / 40 0 0 0, over"},
    });
    // A missing positions file makes every square the same point, and the first stands for all:
    // pieces on the board are knocked, others left alone.
    Positioner = {};
    run({{"all on the board", "1 throws 2: 3 0 0 55 / 0 9 55 44 / 0 0 0 0", piece(0),
          "click; 0 walks 1 1; knock 5; knock 7; clear; end turn; count 1 "
          "=> 5 0 0 55 / 0 0 55 0, over"}});
}

// A new game that is started from the winner window drops the rest of the move.
TEST_F(Moves, TheLastPieceWins) {
    struct Win {
        void (*in_window)();
        std::string effects, after;
    };
    const std::string fresh = "0 0 0 0, first throw";
    const Win rows[] = {
        {[] {}, "hide Pjäs(6); end turn; count 4", "3 55 0 9 / 55 55 55 55, over"},
        {[] { Grattis_öppen = true, Nytt_snabbt(); },
         "light Röd; close Grattis; reset board; tell ask", fresh},
        {Nytt_spel, "light Röd; reset board; tell ask; show Startfrm", fresh},
    };
    for (const Win& row : rows) {
        set_up("2 throws 1: 3 55 0 9 / 55 55 44 55 / 0 0 0 0");
        recorder.at_Grattis = [&] {
            EXPECT_EQ(Aktuell_spelare, 2);
            EXPECT_EQ(Spelare[2].Antal_klara, 4);
            row.in_window();
        };
        piece(6)();
        EXPECT_EQ(seen(), "click; 6 walks 45; clear; show Grattis; " + row.effects);
        EXPECT_EQ(situation(), row.after);
        EXPECT_EQ(broken_invariant(), nullptr);
    }
}

}  // namespace
}  // namespace brusbo::test
