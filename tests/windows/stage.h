#pragma once

#include <gtest/gtest.h>

#include <QEventLoop>
#include <QWidget>
#include <functional>
#include <map>
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
    std::string heard;                                      ///< as " s3 s2 beep"
    int pauses = 0;
    int pauses_to_real_one = 1;  ///< the others do not let the event loop run

    void play_sound(std::string_view file_name) override {
        (heard += " ") += file_name.substr(0, 2);
    }
    void beep() override { heard += " beep"; }
    void pause(int) override {
        at_pause(++pauses);
        if (pauses % pauses_to_real_one == 0) Program::pause(0);
    }
    float random_value() override { return dice.next(); }
};

/// "Pjäs(3)"
inline std::string numbered(const std::string& name, int index) {
    return name + "(" + std::to_string(index) + ")";
}

struct MouseVerb {
    std::string verb;
    Qt::MouseButton button;
    std::vector<QEvent::Type> events;
};

/// The program in a directory of its own, and a player who does what words say, one after the
/// other, each as soon as what came before has ended or waits in a modal window or a menu:
///
///   Pjäs(3)  frmOm/Klar     a click on an element of the main window, of another one
///   MFrm@320,5  +10,-5      a click at a place of it, so far from the latest place
///   4                       a throw
///   2=7,0,0,55              player 2's pieces are put on these squares
///   verb:object             see Stage::Stage and mouse_verbs
///   @2:word                 comes in the second pause of the next word
///   !word                   does not wait
class Stage : public testing::Test {
   protected:
    Stage();
    ~Stage() override;

    void begin();                                ///< starts the program, anew if need be
    void start(const std::string& before = {});  ///< and presses Starta after these words

    /// Does what the words say and tells what followed: sounds, and of facts() what changed.
    /// Whenever the program is at rest the screen must show the state and the state be sound.
    std::string play(const std::string& words);
    void perform(const std::string& word);

    static QWidget* window(const std::string& name);  ///< nullptr where there is none
    static bool shown(const std::string& name);
    static QWidget& at(const std::string& element);
    static QWidget& front();  ///< the window or menu that has the input
    /// What a screen reader says of it, or what has been written into it.
    static std::string text(QWidget& element);
    static void place(int player, std::string squares);
    /// What is unsound in the state, or the elements of the main window that do not show it.
    static std::string fault();
    static std::string lit();  ///< the picture buttons that do not look as they did at first

    virtual std::string next_word();  ///< nothing at the end
    virtual void note();              ///< between words: what has followed

    std::map<std::string, std::function<void(const std::string&)>> verbs;  ///< more of them
    std::unique_ptr<World> world;
    std::string told;            ///< what followed up to now
    bool delivers_late = false;  ///< input stays in the queue until an event loop comes to it
    std::vector<int> ends;       ///< exit codes with which the program wanted to end

   private:
    std::pair<QWidget*, QPointF> spot(const std::string& text) const;
    void use_mouse(const MouseVerb& verb, const std::string& object);
    static void use_keys(QWidget& top, const std::string& keys, bool repeated = false);
    std::vector<std::string> facts() const;
    void go_on();
    void perform_in_pause(int number);

    const Workplace workplace_;
    std::vector<std::string> words_, facts_;
    std::multimap<int, std::string> for_pauses_;
    std::string word_;
    QObject ticker_;
    QEventLoop* loop_ = nullptr;
    int busy_level_ = 0, calm_ = 0, time_ = 1'000'000;
    QPointF pointer_;  ///< on the screen
    QPoint home_;      ///< where the main window stood when the game began
};

}  // namespace brusbo::test
