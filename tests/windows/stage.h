#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QWidget>
#include <array>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "dialogs/program.h"
#include "engine/engine.h"

namespace brusbo::test {

inline const std::filesystem::path good_positions = BRUSBO_ASSETS "/data/brs.dat";

/// Stands between the rules and the program: throws are scripted, pauses are short, and what would
/// be heard is written down instead.
class World final : public Services {
   public:
    explicit World(Services& program) : program_(program) {}

    std::deque<float> random_values;                        ///< used up first
    std::mt19937 generator;                                 ///< then this one delivers
    std::function<void(int number)> at_pause = [](int) {};  ///< counted from 1
    std::function<void()> at_sound = [] {};
    int pauses = 0;
    int winners = 0;
    /// Every so many pauses let the event loop run; the others are skipped.
    int pauses_to_real_one = 1;

    /// What was heard since the last call, as "s3 s2 beep".
    std::string heard() { return std::exchange(heard_, {}); }

    void play_sound(std::string_view file_name) override {
        note(file_name.substr(0, 2));
        at_sound();
    }
    void pause(int) override {
        at_pause(++pauses);
        if (pauses % pauses_to_real_one == 0) program_.pause(0);
    }
    double time_of_day() override { return program_.time_of_day(); }
    void seed_random(double seed) override { program_.seed_random(seed); }
    float random_value() override;
    void beep() override { note("beep"); }
    void show_Grattis() override {
        ++winners;
        program_.show_Grattis();
    }
    void close_Grattis() override { program_.close_Grattis(); }
    void show_Startfrm() override { program_.show_Startfrm(); }

   private:
    void note(std::string_view what) { (heard_ += heard_.empty() ? "" : " ") += what; }

    Services& program_;
    std::string heard_;
};

/// The program in a directory of its own, and hands to play with it. Elements are named as
/// "Pjäs(3)" in the main window and as "Startfrm/Starta" elsewhere.
class Stage : public testing::Test {
   protected:
    Stage();
    ~Stage() override;

    /// Starts the program; returns when the main window has been loaded.
    void load();
    /// And presses Starta, with the first `players` boxes open.
    void start(int players = 2);

    static QWidget* window(const std::string& name);  ///< nullptr where there is none
    static bool shown(const std::string& name);
    static QWidget& at(const std::string& element);
    static std::string text(const std::string& element);
    static bool visible(const std::string& element) { return !at(element).isHidden(); }

    // Input as the window system delivers it: to a window, at a place.
    static void click(const std::string& element, Qt::MouseButton button = Qt::LeftButton);
    static void click_at(const std::string& window, QPoint place);
    static void hover(QPoint place_in_main_window);
    static void key(const std::string& window, Qt::Key key, Qt::KeyboardModifiers held = {});
    static void request_close(const std::string& window);
    static void press_accessibly(const std::string& element);

    /// Does something as soon as a window is shown, also from inside a modal window's loop.
    void when_shown(const std::string& window, std::function<void()> act);
    void when(std::function<bool()> condition, std::function<void()> act);
    /// Lets everything happen that is under way.
    static void settle();

    void script(int face);
    void throw_die(int face);
    /// Places a player's four pieces, on the board's picture too.
    static void place(int player, const std::array<int, 4>& squares);
    /// Hands the turn to a player, from player 1 on, who has one piece left, Pjäs 3, a step from
    /// home.
    void almost_won(int player);
    static std::string squares(int player);

    /// The first thing that the main window shows otherwise than the state has it; or empty.
    static std::string difference();

    static QImage grab(const std::string& window);
    static QColor pixel(const QImage& grabbed, QPointF place);  ///< logical place

    std::filesystem::path directory;
    std::unique_ptr<Program> program;
    std::unique_ptr<World> world;
    std::vector<int> ends;  ///< exit codes with which the program wanted to end

   private:
    std::filesystem::path directory_before_;
    int awaited_ = 0;
};

/// Every text of the message line.
const std::vector<std::string>& messages();

}  // namespace brusbo::test
