#pragma once

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QFontMetrics>
#include <QMenu>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <QWindow>
#include <functional>
#include <map>
#include <memory>

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
    QString heard;                             ///< as " s3 s2"
    int pauses = 0;
    int pauses_to_real_one = 1;  ///< the others do not let the event loop run

    void play_sound(std::string_view name) override { heard += " " + QString(name.data()).left(2); }
    void pause(int) override {
        at_pause(++pauses);
        if (pauses % pauses_to_real_one == 0) Program::pause(0);
    }
    float random_value() override { return dice.next(); }
};

/// Stacks, home lanes, a finished piece.
inline const QString middle_of_game = "1=17,17,42,0 2=0,55,5,5 3=0,41,0,28 4=1,1,0,44 ";
inline const QString window_names[] = {"MFrm", "Startfrm", "Grattis", "frmOm", "Slut"};

/// A window or an element, one that is seen if there are several; nullptr where there is none.
inline QWidget* find(const QString& name) {
    QWidget* found = nullptr;
    for (QWidget* each : QApplication::allWidgets())
        if (each->objectName() == name && (found == nullptr || each->isVisible())) found = each;
    return found;
}

inline bool shown(const QString& name) { return find(name) && find(name)->isVisible(); }

/// The window, menu or message that has the input.
inline QWidget& front() {
    if (QWidget* const popup = QApplication::activePopupWidget()) return *popup;
    QWidget* const active = QApplication::activeWindow();
    return active != nullptr && active->isVisible() ? *active : *find("MFrm");
}

/// The one of this name, or where there is no name the one in front.
inline QWidget& at(const QString& name) {
    if (name.isEmpty()) return front();
    if (QWidget* const found = find(name)) return *found;
    throw std::runtime_error("there is no " + name.toStdString());
}

/// Puts a player's pieces on squares: "7,0,0,55".
inline void place(int player, const QString& squares) {
    Spelardata& data = Spelare[player];
    for (int n = 1; n <= pieces_each; ++n) data.Ruta[n] = squares.split(',')[n - 1].toShort();
    data.Antal_i_boet = static_cast<std::uint8_t>(std::ranges::count(data.Ruta, square_nest));
    data.Antal_klara = static_cast<std::uint8_t>(std::ranges::count(data.Ruta, square_finished));
    for (int b = 4 * player - 4; b < 4 * player; ++b) {
        Pjäs_visible[b] = square_of(b) != square_finished;
        screen().set_visible({Element::Pjäs, b}, Pjäs_visible[b]);
        screen().move({Element::Pjäs, b}, place_of(b).first, place_of(b).second);
    }
    show_finished_count();
    Uppdatera_plus();
}

/// All texts of a window are readable in full inside their boxes.
inline void expect_texts_to_fit(const QWidget& window) {
    for (const QWidget* each : window.findChildren<QWidget*>()) {
        const QString text =
            each->property("text").toString() + each->property("plainText").toString();
        const QRect box = each->rect().adjusted(0, 0, 0, 1);
        const int wraps = each->property("wordWrap").toBool() ? Qt::TextWordWrap : 0;
        const QRect needed = QFontMetrics(each->font()).boundingRect(box, wraps, text.trimmed());
        EXPECT_TRUE(text.isEmpty() || !each->isVisible() || box.contains(needed))
            << qPrintable(text);
    }
}

/// In spots of 6 by 6 pixels fonts look alike on all systems, drawings at other scales nearly.
inline bool look_alike(const QImage& one, const QImage& other) {
    if (one.size() != other.size()) return false;
    const QSize spots = (one.size() + QSize(5, 5)) / 6;
    const QImage a = one.scaled(spots, {}, Qt::SmoothTransformation);
    const QImage b = other.scaled(spots, {}, Qt::SmoothTransformation);
    const bool unscaled = qApp->devicePixelRatio() == 1;
    int differing = 0;
    for (qsizetype byte = 0; byte < a.sizeInBytes(); ++byte)
        if (std::abs(a.constBits()[byte] - b.constBits()[byte]) > (unscaled ? 8 : 24)) ++differing;
    return differing <= (unscaled ? 3 : 24);
}

/// Looks whether texts fit in the window in front, and compares it with the picture of this name:
/// only in our own typeface, and at other scales than 1 only with those that are named so.
inline void look(const QString& name) {
    expect_texts_to_fit(front());
    if (name.contains("scale") != (qApp->devicePixelRatio() != 1)) return;
    if (qEnvironmentVariableIsSet("FONTCONFIG_FILE")) return;
    const QImage seen = front().grab().toImage().convertToFormat(QImage::Format_RGB32);
    const QString folder = name.startsWith("docs/") ? "/" : "/tests/widgets/pictures/";
    const QString file = BRUSBO_SOURCES + folder + name + ".png";
    if (look_alike(seen, QImage(file))) return;
    const bool approve = qEnvironmentVariableIsSet("BRUSBO_APPROVE");
    const QString seen_file = approve ? file : BRUSBO_SEEN + file.mid(file.lastIndexOf('/'));
    EXPECT_TRUE(seen.save(seen_file, "PNG", 0));
    EXPECT_TRUE(approve) << qPrintable(seen_file) << " is not " << qPrintable(file);
}

/// The program in a directory of its own, and a player who does what words say, one after the
/// other, each as soon as what came before has ended or waits in a modal window or a menu:
///
///   Pjäs(3)             a click on an element
///   MFrm@320,5  @10,-5  a click at a place of it, so far from the latest place
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
        verbs["key:"] = [](auto& keys) { use_keys(front(), keys); };
        verbs["held:"] = [](auto& keys) { use_keys(front(), keys, true); };  // down for long
        verbs["behind:"] = [](auto& keys) { use_keys(at("MFrm"), keys); };
        verbs["restore:"] = [](auto& window) { at(window).showNormal(); };
        verbs["close:"] = [](auto& window) { at(window).close(); };
        verbs["reader:"] = [](auto& button) {
            auto* const interface = QAccessible::queryAccessibleInterface(&at(button));
            interface->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        };
        verbs["write:"] = [](auto& text) {
            at(text.section('=', 0, 0)).setProperty("text", text.section('=', 1));
        };
        verbs["look:"] = look;
        // What is seen, for told.
        verbs["read:"] = [this](auto& name) {
            const QWidget& read = at(name);
            told += " '" + read.property(read.isWindow() ? "windowTitle" : "text").toString();
            told += read.isEnabled() ? "'" : "'-";
        };
        verbs["tells:"] = [this](auto& window) {  // of each element: tool tip, name, place
            for (const QWidget* each : at(window).template findChildren<QWidget*>()) {
                const QRect box = each->geometry();
                if (each->accessibleName().isEmpty()) continue;
                told += "\n" + each->toolTip() + "|" + each->accessibleName();
                for (const int number : {box.x(), box.y(), box.width(), box.height()})
                    told += QString("|%1").arg(number);
            }
        };
    }

    /// Starts the program, anew if need be, and does what the words say.
    QString start(const QString& words = "Starta") {
        world.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        reset_to_program_start();
        end = -1;
        world = std::make_unique<World>();
        world->at_pause = [this](int number) { perform_in_pause(number); };
        QTimer::singleShot(0, &ticker_, [this] { world->Main(); });
        home_ = {};
        QString followed = play(words);
        if (shown("MFrm")) home_ = at("MFrm").geometry().topLeft();
        return followed;
    }

    /// Does what the words say and tells what followed: sounds, and of facts() what changed.
    QString play(const QString& words) {
        words_ = words.split(' ', Qt::SkipEmptyParts);
        told.clear();
        facts_ = facts();
        QEventLoop loop;
        loop_ = &loop;
        calm_ = 0;
        go_on();
        loop.exec();
        return told.mid(1);
    }

    /// Nothing at the end.
    virtual QString next_word() { return words_.isEmpty() ? QString() : words_.takeFirst(); }

    /// Comes between words: what has followed.
    virtual void note() {
        const QStringList now = facts();
        told += std::exchange(world->heard, {});
        for (int i = 0; i < now.size(); ++i)
            if (now[i] != facts_[i]) told += " " + now[i];
        facts_ = now;
    }

    std::map<QString, std::function<void(const QString& object)>> verbs;  ///< more of them
    std::unique_ptr<World> world;
    QString told;  ///< what followed up to now
    int end = -1;  ///< the exit code with which the program wanted to end

   private:
    void perform(const QString& word) {
        const auto button = word[0] == '~' ? Qt::RightButton : Qt::LeftButton;
        const QString deed = word.mid(word[0] == '~' ? 1 : 0);
        const QString verb = deed.left(deed.indexOf(':') + 1), object = deed.mid(verb.size());
        if (word[0] == '@') {
            for_pauses_.emplace(word[1].digitValue(), word.mid(3));
        } else if (word.indexOf('=') == 1) {
            place(word[0].digitValue(), word.mid(2));
            facts_ = facts();
        } else if (word.size() == 1) {
            world->dice.script(word[0].digitValue());
            use_mouse("", "Tärning", button);
        } else if (verbs.contains(verb)) {
            verbs.at(verb)(object);
        } else {
            use_mouse(verb, object, button);
        }
    }

    /// The window, and the place in it.
    std::pair<QWidget*, QPointF> spot(const QString& object) const {
        const QString name = object.section('@', 0, 0), place = object.section('@', 1);
        const QPointF point(place.section(',', 0, 0).toDouble(), place.section(',', 1).toDouble());
        QWidget& top = front();
        if (name.isEmpty()) return {&top, top.mapFromGlobal(pointer_ + point)};
        if (auto* const item = top.findChild<QAction*>(name))
            return {&top, dynamic_cast<QMenu&>(top).actionGeometry(item).center()};
        const QWidget& element = at(name);
        const QPointF inside = place.isEmpty() ? element.rect().center() : point;
        return {element.window(), element.mapTo(element.window(), inside)};
    }

    void use_mouse(const QString& verb, const QString& object, Qt::MouseButton button) {
        constexpr auto press = QEvent::MouseButtonPress, release = QEvent::MouseButtonRelease;
        constexpr auto movement = QEvent::MouseMove;
        static const std::map<QString, std::vector<QEvent::Type>> events = {
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

    static void use_keys(QWidget& top, const QString& keys, bool repeated = false) {
        const QKeyCombination pressed = QKeySequence(keys)[0];
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
            qt_handleKeyEvent(top.windowHandle(), type, pressed.key(), pressed.keyboardModifiers(),
                              {}, repeated, 1);
    }

    // In each round of whatever loop runs: the test's own, a modal window's, the menu's, a pause's.
    void go_on() {
        // The next round must not be lost when this one does not come back soon.
        QTimer::singleShot(0, &ticker_, [this] {
            if (loop_ != nullptr) go_on();
        });
        const bool open = !InputGate::instance().closed();
        calm_ = open ? calm_ + 1 : 0;
        if (++rounds_ > 100'000) qFatal("no end of what follows:%s", qPrintable(told));
        if (word_.isEmpty()) word_ = next_word();
        if (!word_.startsWith('!') && calm_ < 4) return;
        if (open) note();
        if (word_.isEmpty()) {
            if (QThread::currentThread()->loopLevel() > 1) return;
            return std::exchange(loop_, nullptr)->quit();
        }
        calm_ = rounds_ = world->pauses = 0;
        perform(std::exchange(word_, {}).remove('!'));
    }

    void perform_in_pause(int number) {
        const auto [first, last] = for_pauses_.equal_range(number);
        if (first == last) return;
        const QStringList before = facts();
        for (auto each = first; each != last; ++each) {
            perform(each->second);
            QCoreApplication::processEvents();
        }
        EXPECT_TRUE(facts() == before) << "nothing is early";
        for_pauses_.erase(first, last);
    }

    /// What can be told of the program, always as many of them.
    QStringList facts() const {
        QString windows, lit;
        for (const QString& name : window_names)
            if (shown(name))
                windows += name + (at(name).isMinimized() ? "_" : "") +
                           (name != "MFrm" && at(name).isActiveWindow() ? "* " : " ");
        if (QApplication::activePopupWidget() != nullptr) windows += "menu";
        static std::map<QString, QImage> unlit;
        for (const QString name : {"mnuArkiv", "mnuOm", "butMini", "butAvsluta"}) {
            const QImage now = find(name) ? at(name).grab().toImage() : QImage();
            if (!now.isNull() && unlit.emplace(name, now).first->second != now) lit += name;
        }
        QStringList facts = {"[" + windows + "]",
                             "lit:" + lit,
                             QString("resets:%1").arg(board_resets),
                             QString("turn:%1").arg(Aktuell_spelare),
                             QString("players:%1").arg(Antal_spelare),
                             Ljud_på ? "sound:on" : "sound:off",
                             QString("end:%1").arg(end)};
        for (const QString name : {"MFrm", "Slut"}) {
            facts += name;
            if (home_.isNull() || !shown(name)) continue;
            const QRect box = at(name).geometry().translated(-home_);
            for (const int number : {box.x(), box.y(), box.width(), box.height()})
                facts.back() += QString(",%1").arg(number);
        }
        for (int p = 1; p <= most_players; ++p)
            facts += QString("%1=").arg(p) + QString(squares(p).data()).replace(' ', ',');
        return facts;
    }

    const Workplace workplace_;
    QStringList words_, facts_;
    std::multimap<int, QString> for_pauses_;
    QString word_;
    QObject ticker_;
    QEventLoop* loop_ = nullptr;
    int calm_ = 0, rounds_ = 0, time_ = 1'000'000;
    QPointF pointer_;  ///< on the screen
    QPoint home_;      ///< where the main window stood when the game began
};

}  // namespace brusbo::test
