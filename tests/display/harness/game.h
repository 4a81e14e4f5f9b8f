#pragma once

#include "platform/pictures.h"
#include "tests/display/harness/running_program.h"

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
inline constexpr QRect Picture2{2, 36, 189, 378};
inline constexpr QRect Picture1{190, 36, 378, 378};
inline constexpr QRect die_row{32, 164, 132, 50};  ///< all places that the die can have
inline constexpr QRect labMeddelande{30, 240, 131, 101};
inline constexpr QRect butEn_pjäs{24, 360, 143, 17};
inline constexpr QRect Klar{56, 320, 71, 33};
inline constexpr QRect Stäng{236, 178, 65, 25};
/// The bare title bar.
inline constexpr QPoint grip{300, 30};

/// The program on an X desktop, and a person in front of it.
class Game {
   public:
    explicit Game(const Desktop& desktop, double scale = 1, Environment more = {},
                  const std::filesystem::path& program = {});

    const XClient& person() const { return desktop_.person(); }
    RunningProgram& program() { return program_; }

    /// The window, shown and painted; waits for it.
    WindowId window(Shown which);
    /// 0 where there is none just now.
    WindowId find(Shown which);
    void wait_until_gone(Shown which);
    /// The open menu; waits for it.
    WindowId menu();

    /// Presses Starta in the start window and returns the main window when all of it is on the
    /// screen. Sounds: s1.
    WindowId play();
    /// Clicks the die and waits until it lies still. Sounds: s3.
    void throw_die(WindowId main);

    /// The pixel in the middle of a place of a window.
    QPoint at(WindowId window, QPointF place) const;
    QPoint at(WindowId window, const QRect& area) const;
    void click(WindowId window, const QRect& area, int button = 1) const;
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
    QSize size_of(Shown which) const;
    QRect scaled(const QRect& area) const;

    const Desktop& desktop_;
    const double scale_;
    RunningProgram program_;
    int entered_ = 0;
};

}  // namespace brusbo::display
