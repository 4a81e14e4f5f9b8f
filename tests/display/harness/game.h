#pragma once

#include "platform/pictures.h"
#include "tests/display/harness/desktop.h"

namespace brusbo::display {

/// The windows that are told apart by their sizes.
enum class Shown { start, main, about, farewell, winner };

// Where things are in their windows, device-independent pixels.
inline constexpr QRect Starta{60, 258, 71, 33};
inline constexpr QRect Namnlist{2, 2, 567, 32};
inline constexpr QRect mnuArkiv{14, 8, 41, 20};
inline constexpr QRect mnuOm{68, 10, 39, 20};
inline constexpr QRect Label1{120, 12, 225, 15};
inline constexpr QRect labPjäser_klara{346, 12, 169, 17};
inline constexpr QRect butMini{526, 8, 13, 20};
inline constexpr QRect butAvsluta{546, 10, 16, 19};
inline constexpr QRect Picture1{190, 36, 378, 378};
inline constexpr QRect die_row{32, 164, 132, 50};  ///< all places that the die can have
inline constexpr QRect labMeddelande{30, 240, 131, 101};
inline constexpr QRect butEn_pjäs{24, 360, 143, 17};
inline constexpr QRect Klar{56, 320, 71, 33};
inline constexpr QRect Stäng{236, 178, 65, 25};
/// The bare title bar.
inline constexpr QPoint grip{300, 30};
/// On the board; a click there does nothing.
inline constexpr QPoint bare_board{380, 250};

/// The program as a player starts it: from a folder with its positions file and its sounds, which
/// here is a copy.
class RunningProgram : public Child {
   public:
    /// `more` goes before the desktop's own environment; `program` stands for ours where it is not
    /// empty.
    explicit RunningProgram(const Desktop& desktop, const Environment& more = {},
                            const std::string& program = {});
    ~RunningProgram() override;

    /// Waits for the next sounds, such as "s1 s3", and throws where they are others. It reads a
    /// file anew for each play; a sound that follows another at once may replace it unread: wait
    /// for one before causing the next.
    void wait_for_sounds(const std::string& expected);

   private:
    int watch_ = -1;
};

/// The program on an X desktop, and a person in front of it.
class Game {
   public:
    /// At another scale than 1, `more` has to say so to Qt.
    explicit Game(const Desktop& desktop, double scale = 1, const Environment& more = {},
                  const std::string& program = {});

    const XClient& person() const { return desktop_.person(); }
    RunningProgram& program() { return program_; }

    /// The window, shown and painted; waits for it.
    WindowId window(Shown which);
    /// 0 where there is none just now.
    WindowId find(Shown which) const;
    void wait_until_gone(Shown which) const;
    /// The open menu, which the window manager leaves alone; waits for it.
    WindowId menu() const;

    /// Presses Starta in the start window and returns the main window when all of it is on the
    /// screen. Hears s1.
    WindowId play();
    /// Clicks the die and waits until it lies still. Sounds: s3.
    void throw_die(WindowId main) const;

    /// The pixel in the middle of a place of a window.
    QPoint at(WindowId window, const QRect& area) const;
    QPoint at(WindowId window, QPoint place) const { return at(window, {place, QSize(1, 1)}); }
    void click(WindowId window, const QRect& area) const { person().click(at(window, area)); }
    /// Moves the mouse into the area, each time to another pixel than the last time: the program
    /// hears of no movement that ends where it last saw the pointer.
    void enter(WindowId window, const QRect& area);
    QImage image(WindowId window, const QRect& area) const;

    /// Whether exactly the picture is seen there; at scale 1.
    bool shows(WindowId window, QPoint corner, Picture picture) const;
    void wait_for_picture(WindowId window, QPoint corner, Picture picture) const;
    void wait_for_change(const std::string& what, WindowId window, const QRect& area,
                         const QImage& before) const;

   private:
    QRect scaled(const QRect& area) const;

    const Desktop& desktop_;
    const double scale_;
    RunningProgram program_;
    int entered_ = 0;
};

}  // namespace brusbo::display
