#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QScopedValueRollback>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <QWindow>
#include <csignal>
#include <functional>
#include <map>
#include <memory>
#include <sstream>

#include "dialogs/program.h"
#include "engine/engine.h"
#include "platform/ending.h"
#include "tests/rules/common.h"

namespace brusbo::test {

/// The program with throws that can be scripted, short pauses, and without sound: what would be
/// heard is written down instead.
struct World final : Program {
    Dice dice;
    std::function<void(int number)> at_pause;  ///< counted from 1
    std::string heard;                         ///< as " s3 s2 beep"
    int pauses = 0;
    int pauses_to_real_one = 1;  ///< the others do not let the event loop run

    void play_sound(std::string_view name) override { heard += " " + std::string(name, 0, 2); }
    void beep() override { heard += " beep"; }
    void pause(int) override {
        at_pause(++pauses);
        if (pauses % pauses_to_real_one == 0) Program::pause(0);
    }
    float random_value() override { return dice.next(); }
};

inline const std::string window_names[] = {"MFrm", "Startfrm", "Grattis", "frmOm", "Slut"};

/// "Pjäs(3)"
inline std::string numbered(const std::string& name, int index) {
    return name + "(" + std::to_string(index) + ")";
}

/// A window or an element, one that is seen if there are several; nullptr where there is none.
inline QWidget* find(const std::string& name) {
    const auto wanted = QString::fromStdString(name);
    QWidget* found = nullptr;
    for (QWidget* each : QApplication::allWidgets())
        if (each->objectName() == wanted && (found == nullptr || each->isVisible())) found = each;
    return found;
}

inline bool shown(const std::string& name) { return find(name) && find(name)->isVisible(); }

inline QWidget& at(const std::string& element) {
    if (QWidget* const found = find(element)) return *found;
    throw std::runtime_error("there is no " + element);
}

/// The window or menu that has the input.
inline QWidget& front() {
    if (QWidget* const popup = QApplication::activePopupWidget()) return *popup;
    QWidget* const active = QApplication::activeWindow();
    return active != nullptr && active->isVisible() ? *active : at("MFrm");
}

inline void place(int player, const std::string& squares) {
    std::istringstream numbers(squares);
    Spelardata& data = Spelare[player];
    data.Antal_i_boet = data.Antal_klara = 0;
    for (int n = 1; n <= pieces_each; ++n) {
        numbers >> data.Ruta[n];
        numbers.ignore();
        if (data.Ruta[n] == square_nest) ++data.Antal_i_boet;
        if (data.Ruta[n] == square_finished) ++data.Antal_klara;
        const int b = data.Bildnr[n - 1];
        Pjäs_visible[b] = data.Ruta[n] != square_finished;
        screen().set_visible({Element::Pjäs, b}, Pjäs_visible[b]);
        screen().move({Element::Pjäs, b}, place_of(b).first, place_of(b).second);
    }
    show_finished_count();
    Uppdatera_plus();
}

/// What is unsound in the state, or the elements of the main window that do not show it.
inline std::string fault() {
    // A winner window stands in the middle of a move.
    if (!find("MFrm") || shown("Grattis")) return {};
    if (const char* const broken = broken_invariant()) return broken;
    std::string wrong = at("Tärning").isEnabled() == Tärning_enabled ? "" : "Tärning ";
    const auto expect = [&](const std::string& name, bool visible, QPoint place) {
        const QWidget& element = at(name);
        const int off = (element.pos() - place).manhattanLength();
        if (element.isHidden() == visible || (visible && off > 4)) wrong += name + " ";
    };
    for (int b = 0; b < piece_count; ++b) {
        // In the nests of the first game pieces stand where they were made, a little aside.
        const QPoint place(place_of(b).first, place_of(b).second);
        expect(numbered("Pjäs", b), square_of(b) != square_finished, place);
        expect(numbered("Plus", b), is_marked(b), place);
    }
    const QWidget* const focus = at("MFrm").focusWidget();
    if (takes_input(at("MFrm")) && focus != nullptr && (focus->isHidden() || !focus->isEnabled()))
        wrong += "focus ";
    expect("butNästa", butNästa_visible, at("butNästa").pos());
    expect("butEn_pjäs", butEn_pjäs_visible, at("butEn_pjäs").pos());
    expect("butTvå_pjäser", butTvå_pjäser_visible, at("butTvå_pjäser").pos());
    return wrong;
}

/// The program in a directory of its own, and a player who does what words say, one after the
/// other, each as soon as what came before has ended or waits in a modal window or a menu:
///
///   Pjäs(3)             a click on an element
///   MFrm@320,5  +10,-5  a click at a place of it, so far from the latest place
///   4                   a throw
///   2=7,0,0,55          player 2's pieces are put on these squares
///   verb:object         see Stage::Stage and Stage::use_mouse
///   ~verb:object        the same with the right button of the mouse
///   @2:word             comes in the second pause of the next word
///   !word               does not wait
class Stage : public testing::Test {
   protected:
    Stage() {
        std::filesystem::copy_file(good_positions, "brs.dat");
        program_end() = [this](int code) { end = code; };
        std::signal(
            SIGALRM,
            [](int) {
                _exit(write(STDERR_FILENO, latest_word.data(), latest_word.size()) > 0 ? 1 : 2);
            });
        verbs["key:"] = [](auto& keys) { use_keys(front(), keys); };
        verbs["held:"] = [](auto& keys) { use_keys(front(), keys, true); };  // down for long
        verbs["behind:"] = [](auto& keys) { use_keys(at("MFrm"), keys); };
        verbs["restore:"] = [](auto& window) { at(window).showNormal(); };
        verbs["close:"] = [](auto& window) {
            QCoreApplication::postEvent(at(window).windowHandle(), new QCloseEvent);
        };
        // From elsewhere than the window system.
        verbs["widget:"] = [](auto& object) { QTest::mouseClick(&at(object), Qt::LeftButton); };
        verbs["code:"] = [](auto& object) { dynamic_cast<QAbstractButton&>(at(object)).click(); };
        verbs["reader:"] = [](auto& object) {
            auto* const interface = QAccessible::queryAccessibleInterface(&at(object));
            interface->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        };
        verbs["write:"] = [](auto& object) {
            const auto text = QString::fromStdString(object).section('=', 1);
            at(object.substr(0, object.find('='))).setProperty("text", text);
        };
        verbs["read:"] = [this](auto& object) {
            const std::string text = at(object).property("text").toString().toStdString();
            told += " '" + text + (at(object).isEnabled() ? "'" : "'-");
        };
    }

    ~Stage() override { forget_program(); }

    /// Starts the program, anew if need be.
    void begin() {
        forget_program();
        reset_to_program_start();
        end = -1;
        home_ = {};
        world = std::make_unique<World>();
        world->at_pause = [this](int number) { perform_in_pause(number); };
        world->Main();
    }

    /// And presses Starta after these words.
    void start(const std::string& before = {}) {
        begin();
        play(before + " Starta");
        home_ = at("MFrm").geometry().topLeft();
    }

    /// Does what the words say and tells what followed: sounds, and of facts() what changed.
    /// Whenever the program is at rest the screen must show the state and the state be sound.
    std::string play(const std::string& words) {
        words_ = std::istringstream(words);
        told.clear();
        facts_ = facts();
        QEventLoop loop;
        loop_ = &loop;
        go_on();
        loop.exec();
        alarm(0);
        return told.empty() ? told : told.substr(1);
    }

    void perform(const std::string& word) {
        latest_word = word;
        const std::string deed = word.substr(word.starts_with('~') ? 1 : 0);
        const std::string verb = deed.substr(0, deed.find(':') + 1);
        const std::string object = word.size() == 1 ? "Tärning" : deed.substr(verb.size());
        if (word.size() == 1) world->dice.script(word[0] - '0');
        if (word.find('=') == 1)
            place(word[0] - '0', word.substr(2));
        else if (verbs.contains(verb))
            verbs.at(verb)(object);
        else
            use_mouse(verb, object, deed == word ? Qt::LeftButton : Qt::RightButton);
        if (!delivers_late) QCoreApplication::processEvents();
    }

    /// Nothing at the end.
    virtual std::string next_word() {
        std::string word;
        words_ >> word;
        return word;
    }

    /// Comes between words: what has followed.
    virtual void note() {
        const auto now = facts();
        told += std::exchange(world->heard, {});
        for (std::size_t i = 0; i < now.size(); ++i)
            if (now[i] != facts_[i]) told += " " + now[i];
        facts_ = now;
        EXPECT_EQ(fault(), "") << latest_word;
    }

    static inline std::string latest_word;
    std::map<std::string, std::function<void(const std::string&)>> verbs;  ///< more of them
    std::unique_ptr<World> world;
    std::string told;            ///< what followed up to now
    bool delivers_late = false;  ///< input stays in the queue until an event loop comes to it
    int end = -1;                ///< the exit code with which the program wanted to end

   private:
    void forget_program() {
        world.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    std::pair<QWidget*, QPointF> spot(const std::string& text) const {
        const auto sign = text.find('@'), comma = text.find(',');
        const auto pair = [&](std::size_t first) {
            return QPointF(std::stod(text.substr(first)), std::stod(text.substr(comma + 1)));
        };
        if (text[0] == '+') return {&front(), front().mapFromGlobal(pointer_ + pair(1))};
        if (auto* const menu = qobject_cast<QMenu*>(&front())) {
            auto* const item = menu->findChild<QAction*>(QString::fromStdString(text));
            if (item != nullptr) return {menu, menu->actionGeometry(item).center()};
        }
        QWidget& element = at(text.substr(0, sign));
        const QPointF place = sign == std::string::npos ? element.rect().center() : pair(sign + 1);
        return {element.window(), element.mapTo(element.window(), place)};
    }

    void use_mouse(const std::string& verb, const std::string& object, Qt::MouseButton button) {
        constexpr auto press = QEvent::MouseButtonPress, release = QEvent::MouseButtonRelease;
        constexpr auto movement = QEvent::MouseMove;
        static const std::map<std::string, std::vector<QEvent::Type>> events = {
            {"", {press, release}}, {"twice:", {press, release, press, release}},
            {"press:", {press}},    {"pull:", {movement}},
            {"hover:", {movement}}, {"drop:", {release}},
        };
        const auto [top, place] = spot(object);
        pointer_ = top->mapToGlobal(place);
        time_ += 1000;  // no double click with the one before
        for (const QEvent::Type type : events.at(verb)) {
            const auto down = type == release || verb == "hover:" ? Qt::NoButton : button;
            qt_handleMouseEvent(top->windowHandle(), place, pointer_, down,
                                type == movement ? Qt::NoButton : button, type, {}, ++time_);
        }
    }

    static void use_keys(QWidget& top, const std::string& keys, bool repeated = false) {
        const auto pressed = QKeySequence(QString::fromStdString(keys))[0];
        const QString letter = pressed.key() < 0x80
                                   ? QString(QChar::fromUcs2(static_cast<char16_t>(pressed.key())))
                                   : QString();
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
            qt_handleKeyEvent(top.windowHandle(), type, pressed.key(), pressed.keyboardModifiers(),
                              letter, repeated, 1);
    }

    // From whatever loop runs: the test's own, a modal window's, the menu's, a pause's.
    void go_on() {
        // The next round must not be lost when this one does not come back soon.
        QTimer::singleShot(0, &ticker_, [this] {
            if (loop_ != nullptr) go_on();
        });
        const int level = QThread::currentThread()->loopLevel();
        const bool open = !InputGate::instance().closed();
        calm_ = open ? calm_ + 1 : 0;
        if (level <= busy_level_) return;
        if (word_.empty()) word_ = next_word();
        const bool at_once = word_.starts_with('!');
        if (!at_once && calm_ < 3) return;
        if (open) note();
        if (word_.empty()) {
            if (level == 1) std::exchange(loop_, nullptr)->quit();
            return;
        }
        alarm(10);  // seconds for each word
        calm_ = world->pauses = 0;
        const QScopedValueRollback busy(busy_level_, level);
        const std::string word = std::exchange(word_, {}).substr(at_once ? 1 : 0);
        if (word[0] == '@')
            for_pauses_.emplace(word[1] - '0', word.substr(3));
        else
            perform(word);
        if (word.find('=') == 1) facts_ = facts();
    }

    void perform_in_pause(int number) {
        const auto [first, last] = for_pauses_.equal_range(number);
        if (first == last) return;
        const auto before = facts();
        for (auto each = first; each != last; ++each) perform(each->second);
        EXPECT_EQ(facts(), before) << "nothing is early";
        for_pauses_.erase(first, last);
    }

    /// What can be told of the program, always as many of them.
    std::vector<std::string> facts() const {
        std::string windows, lit;
        for (const std::string& name : window_names)
            if (shown(name))
                windows += name + (at(name).isMinimized() ? "_" : "") +
                           (name != "MFrm" && at(name).isActiveWindow() ? "* " : " ");
        if (QApplication::activePopupWidget() != nullptr) windows += "menu";
        static std::map<std::string, QImage> unlit;
        for (const std::string name : {"mnuArkiv", "mnuOm", "butMini", "butAvsluta"}) {
            if (!find(name)) continue;
            const QImage now = at(name).grab().toImage();
            if (unlit.emplace(name, now).first->second != now) lit += name;
        }
        std::vector<std::string> facts = {"[" + windows + "]",
                                          "lit:" + lit,
                                          "resets:" + std::to_string(board_resets),
                                          "turn:" + std::to_string(Aktuell_spelare),
                                          "players:" + std::to_string(Antal_spelare),
                                          Ljud_på ? "sound:on" : "sound:off",
                                          "end:" + std::to_string(end)};
        for (const std::string name : {"MFrm", "Slut"}) {
            facts.push_back(name);
            if (home_.isNull() || !shown(name)) continue;
            const QRect place = at(name).geometry().translated(-home_);
            for (const int number : {place.x(), place.y(), place.width(), place.height()})
                facts.back() += "," + std::to_string(number);
        }
        for (int p = 1; p <= most_players; ++p) {
            facts.push_back(std::to_string(p) + "=" + squares(p));
            std::ranges::replace(facts.back(), ' ', ',');
        }
        return facts;
    }

    const Workplace workplace_;
    std::istringstream words_;
    std::vector<std::string> facts_;
    std::multimap<int, std::string> for_pauses_;
    std::string word_;
    QObject ticker_;
    QEventLoop* loop_ = nullptr;
    int busy_level_ = 0, calm_ = 0, time_ = 1'000'000;
    QPointF pointer_;  ///< on the screen
    QPoint home_;      ///< where the main window stood when the game began
};

}  // namespace brusbo::test
