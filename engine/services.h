#pragma once

#include <string_view>

namespace brusbo {

/// All that the rules want of the world outside the main window.
class Services {
   public:
    virtual ~Services() = default;

    /// Starts a sound file of the current directory and returns at once; a sound that still plays
    /// is cut off. Failure is silent. Called only while sound is on.
    virtual void play_sound(std::string_view file_name) = 0;
    /// Returns after so many milliseconds. What the elements were told before is on the screen
    /// when the pause begins. No input is handled meanwhile.
    virtual void pause(int milliseconds) = 0;

    /// Seconds since midnight, with fractions; 0 <= result < 86400 (86401 on a day of a leap
    /// second).
    virtual double time_of_day() = 0;
    /// Starts a new sequence of random values; the same seed gives the same sequence.
    virtual void seed_random(double seed) = 0;
    /// Uniformly distributed, 0 <= result < 1.
    virtual float random_value() = 0;

    /// The system's warning sound.
    virtual void beep() = 0;

    /// Shows the winner window for `Aktuell_spelare` and returns when it has closed. A new game may
    /// be set up meanwhile through `Nytt_spel` or `Nytt_snabbt`.
    virtual void show_Grattis() = 0;
    /// Closes the winner window. `show_Grattis` returns after the caller is done.
    virtual void close_Grattis() = 0;
    /// Shows the start window and returns when its start button has hidden it. Its activation runs
    /// `Nollställ_spelare`, and the players may change names, their number and the sound switch.
    virtual void show_Startfrm() = 0;
};

}  // namespace brusbo
