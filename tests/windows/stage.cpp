#include "tests/windows/stage.h"

#include <unistd.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QCloseEvent>
#include <QLineEdit>
#include <QMenu>
#include <QScopedValueRollback>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <csignal>
#include <cstring>
#include <sstream>
#include <stdexcept>

#include "platform/ending.h"

namespace brusbo::test {

namespace {

constexpr unsigned patience = 10;  // seconds for each word
char latest_word[100] = "\n";

void give_up(int) {
    _exit(write(STDERR_FILENO, latest_word, std::strlen(latest_word)) > 0 ? 1 : 2);
}

/// Whether an element shows what the first that stood for the same showed.
bool looks_as_before(const std::string& meaning, QWidget& element) {
    static std::map<std::string, QImage> seen;
    const QImage now = element.grab().toImage();
    return seen.emplace(meaning, now).first->second == now;
}

constexpr auto press = QEvent::MouseButtonPress, release = QEvent::MouseButtonRelease;

const MouseVerb mouse_verbs[] = {
    {"", Qt::LeftButton, {press, release}},
    {"right", Qt::RightButton, {press, release}},
    {"middle", Qt::MiddleButton, {press, release}},
    {"twice", Qt::LeftButton, {press, release, press, release}},
    {"press", Qt::LeftButton, {press}},
    {"press_right", Qt::RightButton, {press}},
    {"pull", Qt::LeftButton, {QEvent::MouseMove}},
    {"pull_right", Qt::RightButton, {QEvent::MouseMove}},
    {"drop", Qt::LeftButton, {release}},
    {"drop_right", Qt::RightButton, {release}},
    {"hover", Qt::NoButton, {QEvent::MouseMove}},
};

}  // namespace

Stage::Stage() {
    std::filesystem::copy_file(good_positions, "brs.dat");
    program_end() = [this](int code) { ends.push_back(code); };
    std::signal(SIGALRM, give_up);
    verbs["key"] = [this](auto& keys) { use_keys(front(), keys); };
    verbs["held"] = [this](auto& keys) { use_keys(front(), keys, true); };  // down for long
    verbs["behind"] = [this](auto& keys) { use_keys(at("MFrm"), keys); };
    verbs["restore"] = [](auto& window) { at(window).showNormal(); };
    verbs["close"] = [](auto& window) {
        QCoreApplication::postEvent(at(window).windowHandle(), new QCloseEvent);
    };
    verbs["wheel"] = [this](auto& object) {
        const auto [top, place] = spot(object);
        QCoreApplication::postEvent(
            top->windowHandle(), new QWheelEvent(place, top->mapToGlobal(place), {}, {0, -120}, {},
                                                 {}, Qt::NoScrollPhase, false));
    };
    // From elsewhere than the window system.
    verbs["widget"] = [](auto& object) { QTest::mouseClick(&at(object), Qt::LeftButton); };
    verbs["code"] = [](auto& object) { dynamic_cast<QAbstractButton&>(at(object)).click(); };
    verbs["reader"] = [](auto& object) {
        auto* const interface = QAccessible::queryAccessibleInterface(&at(object));
        auto* const actions = interface == nullptr ? nullptr : interface->actionInterface();
        if (actions != nullptr) actions->doAction(actions->actionNames().value(0));
    };
    verbs["write"] = [](auto& object) {
        const auto equals = object.find('=');
        auto& box = dynamic_cast<QLineEdit&>(at(object.substr(0, equals)));
        box.setText(QString::fromStdString(object.substr(equals + 1)));
    };
    verbs["read"] = [this](auto& object) {
        const QWidget& element = at(object);
        told += " '" + text(at(object)) + (element.isEnabled() ? "'" : "'-") +
                (element.property("checked").toBool() ? "+" : "");
    };
}

Stage::~Stage() {
    world.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Stage::begin() {
    world.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    reset_to_program_start();
    ends.clear();
    home_ = {};
    world = std::make_unique<World>();
    world->at_pause = [this](int number) { perform_in_pause(number); };
    world->Main();
}

void Stage::start(const std::string& before) {
    begin();
    play(before + " Startfrm/Starta");
    home_ = at("MFrm").geometry().topLeft();
}

QWidget* Stage::window(const std::string& name) {
    QWidget* found = nullptr;
    for (QWidget* each : QApplication::topLevelWidgets())
        if (each->objectName().toStdString() == name && (found == nullptr || each->isVisible()))
            found = each;
    return found;
}

bool Stage::shown(const std::string& name) {
    return window(name) != nullptr && window(name)->isVisible();
}

QWidget& Stage::at(const std::string& element) {
    const auto slash = element.find('/');
    if (QWidget* const whole = window(element)) return *whole;
    QWidget* const parent = window(slash == std::string::npos ? "MFrm" : element.substr(0, slash));
    const auto name = QString::fromStdString(element.substr(slash + 1));
    QWidget* const found = parent == nullptr ? nullptr : parent->findChild<QWidget*>(name);
    if (found == nullptr) throw std::runtime_error("there is no " + element);
    return *found;
}

QWidget& Stage::front() {
    if (QWidget* const popup = QApplication::activePopupWidget()) return *popup;
    QWidget* const active = QApplication::activeWindow();
    return active != nullptr ? *active : at("MFrm");
}

std::string Stage::text(QWidget& element) {
    const auto* const box = qobject_cast<QLineEdit*>(&element);
    auto* const interface = QAccessible::queryAccessibleInterface(&element);
    return (box != nullptr ? box->text() : interface->text(QAccessible::Name)).toStdString();
}

std::pair<QWidget*, QPointF> Stage::spot(const std::string& text) const {
    const auto sign = text.find('@'), comma = text.find(',');
    const auto pair = [&](std::size_t first) {
        return QPointF(std::stod(text.substr(first)), std::stod(text.substr(comma + 1)));
    };
    if (text[0] == '+') return {&front(), front().mapFromGlobal(pointer_ + pair(1))};
    if (text.starts_with("menu/")) {
        auto* const item = front().findChild<QAction*>(QString::fromStdString(text.substr(5)));
        return {&front(), dynamic_cast<QMenu&>(front()).actionGeometry(item).center()};
    }
    QWidget& element = at(text.substr(0, sign));
    const QPointF place = sign == std::string::npos ? element.rect().center() : pair(sign + 1);
    return {element.window(), element.mapTo(element.window(), place)};
}

void Stage::use_mouse(const MouseVerb& verb, const std::string& object) {
    const auto [top, place] = spot(object);
    pointer_ = top->mapToGlobal(place);
    time_ += 1000;  // no double click with the one before
    for (const QEvent::Type type : verb.events)
        qt_handleMouseEvent(
            top->windowHandle(), place, pointer_, type == release ? Qt::NoButton : verb.button,
            type == QEvent::MouseMove ? Qt::NoButton : verb.button, type, {}, ++time_);
}

void Stage::use_keys(QWidget& top, const std::string& keys, bool repeated) {
    const auto pressed = QKeySequence(QString::fromStdString(keys))[0];
    const bool writes = pressed.key() < 0x80 && pressed.keyboardModifiers() == Qt::NoModifier;
    const QString letter = writes ? QString(QChar(pressed.key())) : QString();
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
        qt_handleKeyEvent(top.windowHandle(), type, pressed.key(), pressed.keyboardModifiers(),
                          letter, repeated, 1);
}

void Stage::perform(const std::string& word) try {
    latest_word[word.copy(latest_word, sizeof latest_word - 1)] = 0;
    const auto colon = word.find(':');
    const std::string verb = word.substr(0, colon == std::string::npos ? 0 : colon);
    const std::string object = word.size() == 1 ? "Tärning" : word.substr(colon + 1);
    const auto* const mouse_verb = std::ranges::find(mouse_verbs, verb, &MouseVerb::verb);
    if (word.size() == 1) world->dice.script(word[0] - '0');
    if (word.find('=') == 1)
        place(word[0] - '0', word.substr(2));
    else if (mouse_verb != std::end(mouse_verbs))
        use_mouse(*mouse_verb, object);
    else
        verbs.at(verb)(object);
    if (!delivers_late) QCoreApplication::processEvents();
} catch (const std::exception& error) {
    ADD_FAILURE() << word << ": " << error.what();
}

void Stage::place(int player, std::string squares) {
    std::replace(squares.begin(), squares.end(), ',', ' ');
    std::istringstream numbers(squares);
    Spelardata& data = Spelare[player];
    data.Antal_i_boet = data.Antal_klara = 0;
    for (int n = 1; n <= pieces_each; ++n) {
        numbers >> data.Ruta[n];
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

std::string Stage::next_word() {
    if (words_.empty()) return {};
    const std::string word = words_.front();
    words_.erase(words_.begin());
    return word;
}

std::string Stage::play(const std::string& words) {
    std::istringstream each(words);
    words_.assign(std::istream_iterator<std::string>(each), {});
    told.clear();
    facts_ = facts();
    QEventLoop loop;
    loop_ = &loop;
    go_on();
    loop.exec();
    alarm(0);
    return told.empty() ? told : told.substr(1);
}

// From whatever loop runs: the test's own, a modal window's, the menu's, a pause's.
void Stage::go_on() {
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
    alarm(patience);
    calm_ = world->pauses = 0;
    const QScopedValueRollback busy(busy_level_, level);
    const std::string word = std::exchange(word_, {}).substr(at_once ? 1 : 0);
    if (word[0] == '@')
        for_pauses_.emplace(word[1] - '0', word.substr(3));
    else
        perform(word);
    if (latest_word[1] == '=') facts_ = facts();
}

void Stage::perform_in_pause(int number) {
    const auto [first, last] = for_pauses_.equal_range(number);
    if (first == last) return;
    const auto before = facts();
    const std::string heard = world->heard;
    for (auto each = first; each != last; ++each) perform(each->second);
    EXPECT_EQ(facts(), before) << "nothing is early";
    EXPECT_EQ(world->heard, heard);
    for_pauses_.erase(first, last);
}

void Stage::note() {
    const auto now = facts();
    told += std::exchange(world->heard, {});
    for (std::size_t i = 0; i < now.size(); ++i)
        if (now[i] != facts_[i]) told += " " + now[i];
    facts_ = now;
    EXPECT_EQ(fault(), "") << latest_word;
}

std::string Stage::lit() {
    std::string names;
    if (!window("MFrm")) return names;
    for (const std::string name : {"mnuArkiv", "mnuOm", "butMini", "butAvsluta"})
        if (!looks_as_before(name, at(name))) names += name;
    return names;
}

/// What can be told of the program, always as many of them.
std::vector<std::string> Stage::facts() const {
    std::string windows;
    for (const std::string name : {"Startfrm", "MFrm", "Grattis", "frmOm", "Slut"}) {
        if (!shown(name)) continue;
        const QWidget& each = at(name);
        windows += (windows.empty() ? "" : " ") + name + (each.isMinimized() ? "_" : "") +
                   (each.isActiveWindow() ? "*" : "");
    }
    if (QApplication::activePopupWidget() != nullptr) windows += " menu";
    if (windows == "MFrm*") windows = "MFrm";
    const QWidget* const focus = QApplication::focusWidget();
    std::vector<std::string> facts = {
        "[" + windows + "]",
        "lit:" + lit(),
        "focus:" + (focus == nullptr ? "" : focus->objectName().toStdString()),
        "resets:" + std::to_string(board_resets),
        "turn:" + std::to_string(Aktuell_spelare),
        "players:" + std::to_string(Antal_spelare),
        Ljud_på ? "sound:on" : "sound:off",
        ends.empty() ? "" : "end:" + std::to_string(ends.back())};
    for (const std::string name : {"MFrm", "Slut"}) {
        facts.push_back(name);
        if (home_.isNull() || !shown(name)) continue;
        const QRect place = at(name).geometry().translated(-home_);
        for (const int number : {place.x(), place.y(), place.width(), place.height()})
            facts.back() += "," + std::to_string(number);
    }
    for (int p = 1; p <= most_players; ++p) {
        std::string on = squares(p);
        std::replace(on.begin(), on.end(), ' ', ',');
        facts.push_back(std::to_string(p) + "=" + on);
        facts.push_back("name:" + Spelare[p].Namn);
    }
    return facts;
}

std::string Stage::fault() {
    // A winner window stands in the middle of a move.
    if (!window("MFrm") || shown("Grattis")) return {};
    if (const char* const broken = broken_invariant()) return broken;
    static int looks = 0;
    ++looks;
    std::string differing;
    const auto expect = [&](const std::string& name, bool right) {
        if (!right) differing += name + " ";
    };
    for (int b = 0; b < piece_count; ++b) {
        QWidget& piece = at(numbered("Pjäs", b));
        const QWidget& marker = at(numbered("Plus", b));
        const QPoint place(place_of(b).first, place_of(b).second);
        const bool finished = square_of(b) == square_finished;
        // In the nests of the first game pieces stand where they were made.
        const bool in_place =
            piece.pos() == place || finished || (board_resets == 0 && square_of(b) == square_nest);
        expect(numbered("Pjäs", b), piece.isHidden() == finished && in_place);
        expect(numbered("Plus", b), marker.isHidden() != is_marked(b) &&
                                        (marker.isHidden() || marker.pos() == piece.pos()));
        if (looks % piece_count == b)
            expect(numbered("Pjäs", b), looks_as_before(numbered("piece", b / 4), piece));
    }
    const int p = Aktuell_spelare;
    QWidget &highlight = at("shpHålbak"), &die = at("Tärning");
    const int face = std::max<int>(Senaste_slag, 1);
    expect("shpHålbak", highlight.pos() == QPoint(p == 2 || p == 3 ? 244 : 6, p < 3 ? 8 : 246));
    const char* const colours[] = {"röd", "blå", "grön", "gul"};
    expect("Tärning", die.isEnabled() == Tärning_enabled);
    expect("Tärning", text(die) == "Tärning, visar " + std::to_string(face));
    for (const auto& [name, visible] : {std::pair("butNästa", butNästa_visible),
                                        {"butEn_pjäs", butEn_pjäs_visible},
                                        {"butTvå_pjäser", butTvå_pjäser_visible}})
        expect(name, at(name).isHidden() != visible);
    const Spelardata& player = Spelare[p];
    const std::string count = "Antal pjäser klara: " + std::to_string(+player.Antal_klara);
    expect("labPjäser_klara", text(at("labPjäser_klara")) == count);
    // While a start window is open the names may be ahead of the sentence.
    if (shown("Startfrm")) return differing;
    const bool s = player.Namn.ends_with('s') || player.Namn.ends_with('S');
    expect("labVisa_tur", text(at("labVisa_tur")) == player.Namn + (s ? " tur!" : "s tur!"));
    const std::string colour = std::string("Spelarens färg: ") + colours[p - 1];
    expect("imgVisa_tur", text(at("imgVisa_tur")) == colour);
    if (looks % 8 != 0) return differing;
    expect("Tärning", looks_as_before(numbered("die", face), die));
    expect("shpHålbak", looks_as_before(numbered("highlight", p), highlight));
    expect("imgVisa_tur", looks_as_before(numbered("piece", p - 1), at("imgVisa_tur")));
    return differing;
}

}  // namespace brusbo::test
