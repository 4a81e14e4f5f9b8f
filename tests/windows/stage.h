#pragma once

#include <gtest/gtest.h>

#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "dialogs/program.h"
#include "engine/engine.h"
#include "tests/rules/common.h"

namespace brusbo::test {

/// The program with throws that can be scripted, short pauses, and without sound: what would be
/// heard is written down instead.
class World final : public Program {
   public:
    Dice dice;
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
        if (pauses % pauses_to_real_one == 0) Program::pause(0);
    }
    float random_value() override { return dice.next(); }
    void beep() override { note("beep"); }
    void show_Grattis() override {
        ++winners;
        Program::show_Grattis();
    }

   private:
    void note(std::string_view what) { (heard_ += heard_.empty() ? "" : " ") += what; }

    std::string heard_;
};

/// "Pjäs(3)"
std::string numbered(const std::string& name, int index);

/// The program in a directory of its own, and hands to play with it. Elements are named as
/// "Pjäs(3)" in the main window and as "Startfrm/Starta" elsewhere.
class Stage : public testing::Test {
   protected:
    Stage();
    ~Stage() override;

    void begin();  ///< starts the program, anew if need be
    void load();   ///< and returns when the main window has been loaded
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
    static std::optional<Picture> picture(const QWidget& element);
    /// The colour that is painted at a place of a window.
    static QColor pixel(const std::string& window, QPointF place);

    // Input as the window system delivers it: to a window, at a place.
    static void click(const std::string& element, Qt::MouseButton button = Qt::LeftButton);
    static void hover(QPoint place_in_main_window);
    static void key(const std::string& window, Qt::Key key, Qt::KeyboardModifiers held = {});
    static void request_close(const std::string& window);
    static void press_accessibly(const std::string& element);

    /// Does something as soon as there is cause, also inside a modal window's or a menu's loop.
    void when(std::function<bool()> cause, std::function<void()> act);
    void when_shown(const std::string& window, std::function<void()> act);
    void in_menu(std::function<void()> act);
    /// Clicks on an element as soon as its window is shown.
    void answer(const std::string& element);
    /// Lets everything happen that is under way.
    static void settle();

    /// Throws (their faces) and clicks (element names), one after the other as "6 butTvå_pjäser".
    /// Returns what was heard.
    std::string play(const std::string& moves);
    /// Places a player's four pieces, as "5 0 0 55", on the board's picture too.
    static void place(int player, const std::string& squares);
    /// The current player wins; `answer` is given to the winner window.
    void win(std::function<void()> answer);

    /// The elements of the main window that show something else than the state has; or empty.
    static std::string difference();

    std::unique_ptr<World> world;
    std::vector<int> ends;  ///< exit codes with which the program wanted to end

   private:
    const Workplace workplace_;
    int awaited_ = 0;
};

}  // namespace brusbo::test
