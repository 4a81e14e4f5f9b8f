#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QWidget>
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
    int pauses_to_real_one = 1;  ///< the others do not let the event loop run

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

    void close();  ///< the program, with all its windows
    /// Starts the program, anew if need be; returns when the main window has been loaded.
    void load();
    /// And presses Starta, with the first `players` boxes open.
    void start(int players = 2);

    static QWidget* window(const std::string& name);  ///< nullptr where there is none
    static bool shown(const std::string& name);
    static QWidget& at(const std::string& element);
    template <class Widget>
    static Widget& as(const std::string& element) {
        return dynamic_cast<Widget&>(at(element));
    }
    static std::string text(const std::string& element);
    static bool visible(const std::string& element) { return !at(element).isHidden(); }
    static bool checked(const std::string& element);
    /// A place in an element as one in its window.
    static QPoint in_window(const std::string& element, QPoint place);

    // Input as the window system delivers it: to a window, at a place.
    static void click(const std::string& element, Qt::MouseButton button = Qt::LeftButton);
    static void click_at(const std::string& window, QPoint place);
    static void hover(QPoint place_in_main_window);
    static void key(const std::string& window, Qt::Key key, Qt::KeyboardModifiers held = {});
    static void drag(const std::string& window, Qt::MouseButton button, QPoint from, QPoint by);
    static void request_close(const std::string& window);
    static void press_accessibly(const std::string& element);

    /// Does something as soon as a window is shown, also from inside a modal window's loop.
    void when_shown(const std::string& window, std::function<void()> act);
    /// Or when the game menu, or another popup, is open.
    void in_menu(std::function<void()> act);
    void when(std::function<bool()> condition, std::function<void()> act);
    /// Lets everything happen that is under way.
    static void settle();

    void script(int face);
    void throw_die(int face);
    void pass_to(int player);  ///< by turns in which nobody moves
    /// Places a player's four pieces, as "5 0 0 55", on the board's picture too.
    static void place(int player, const std::string& squares);
    /// The current player wins; `answer` is given to the winner window.
    void win(std::function<void()> answer);
    static std::string squares(int player);

    /// The first thing that the main window shows otherwise than the state has it; or empty.
    static std::string difference();

    static QImage grab(const std::string& window);
    static QColor pixel(const QImage& grabbed, QPointF place);  ///< logical place

    std::unique_ptr<Program> program;
    std::unique_ptr<World> world;
    std::vector<int> ends;  ///< exit codes with which the program wanted to end

   private:
    std::filesystem::path directory_, directory_before_ = std::filesystem::current_path();
    int awaited_ = 0;
};

std::string numbered(const std::string& name, int index);

}  // namespace brusbo::test
