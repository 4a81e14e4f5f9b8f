#pragma once

#include "benchmarks/watch/screen_watch.h"
#include "tests/display/harness/game.h"

namespace brusbo::display {

/// Plays a game by looking at it, with the mouse, and writes down when pictures change on the board
/// and in the die's row.
class Player {
   public:
    Player(Game& game, ScreenWatch& watch, const char* positions_file);

    /// One throw, and what has to follow it until the die can be thrown again.
    void take_turn();

    /// Between pictures of one animation, in milliseconds.
    const std::vector<double>& throw_intervals() const { return throw_intervals_; }
    const std::vector<double>& walk_intervals() const { return walk_intervals_; }

   private:
    void click(QPoint place);
    bool walked_after_click(QPoint place);
    void collect(std::vector<double>& intervals, std::chrono::milliseconds patience);
    bool shows(QPoint place, QRgb colour) const;
    void move_a_piece();

    Game& game_;
    ScreenWatch& watch_;
    const WindowId main_;
    const QPoint corner_;
    std::vector<QPoint> squares_;
    std::vector<double> throw_intervals_;
    std::vector<double> walk_intervals_;
};

}  // namespace brusbo::display
