#include "tests/windows/stage.h"

#include <stdlib.h>

#include <QAccessible>
#include <QApplication>
#include <QCloseEvent>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <sstream>
#include <stdexcept>

#include "platform/ending.h"

namespace brusbo::test {

float World::random_value() {
    if (random_values.empty()) return static_cast<float>(generator() >> 8U) * 0x1p-24F;
    const float value = random_values.front();
    random_values.pop_front();
    return value;
}

Stage::Stage() {
    std::string pattern = std::filesystem::temp_directory_path() / "brusbo-XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no directory for the test");
    directory_ = pattern;
    std::filesystem::current_path(directory_);
    std::filesystem::copy_file(BRUSBO_ASSETS "/data/brs.dat", "brs.dat");
    program_end() = [this](int code) { ends.push_back(code); };
    reset_to_program_start();
}

Stage::~Stage() {
    settle();
    EXPECT_EQ(awaited_, 0) << "something awaited never came";
    close();
    std::filesystem::current_path(directory_before_);
    std::filesystem::remove_all(directory_);
}

void Stage::close() {
    program.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Stage::load() {
    close();
    reset_to_program_start();
    program = std::make_unique<Program>();
    program->Main();
    const auto loaded = [] { return window("MFrm") != nullptr && !InputGate::instance().closed(); };
    ASSERT_TRUE(QTest::qWaitFor(loaded));
    settle();
    world = std::make_unique<World>(*program);
    connect(screen(), *world);
}

void Stage::start(int players) {
    load();
    if (players > 2) click(numbered("Startfrm/AntSpelare", players - 1));
    click("Startfrm/Starta");
    settle();
    world->heard();
}

QWidget* Stage::window(const std::string& name) {
    QWidget* found = nullptr;
    for (QWidget* each : QApplication::topLevelWidgets())
        if (each->objectName().toStdString() == name && (found == nullptr || each->isVisible()))
            found = each;
    return found;
}

bool Stage::shown(const std::string& name) {
    const QWidget* found = window(name);
    return found != nullptr && found->isVisible();
}

QWidget& Stage::at(const std::string& element) {
    const auto slash = element.find('/');
    const std::string where = slash == std::string::npos ? "MFrm" : element.substr(0, slash);
    const std::string name = slash == std::string::npos ? element : element.substr(slash + 1);
    QWidget* const parent = window(where);
    QWidget* const found =
        parent == nullptr ? nullptr : parent->findChild<QWidget*>(QString::fromStdString(name));
    if (found == nullptr) throw std::runtime_error("there is no " + element);
    return *found;
}

std::string Stage::text(const std::string& element) {
    return at(element).property("text").toString().toStdString();
}

bool Stage::checked(const std::string& element) { return at(element).property("checked").toBool(); }

QPoint Stage::in_window(const std::string& element, QPoint place) {
    return at(element).mapTo(at(element).window(), place);
}

void Stage::click(const std::string& element, Qt::MouseButton button) {
    QTest::mouseClick(at(element).window()->windowHandle(), button, {},
                      in_window(element, at(element).rect().center()));
}

void Stage::click_at(const std::string& name, QPoint place) {
    QTest::mouseClick(window(name)->windowHandle(), Qt::LeftButton, {}, place);
}

void Stage::hover(QPoint place) { QTest::mouseMove(window("MFrm")->windowHandle(), place); }

void Stage::key(const std::string& name, Qt::Key key, Qt::KeyboardModifiers held) {
    QTest::keyClick(window(name)->windowHandle(), key, held);
}

void Stage::drag(const std::string& name, Qt::MouseButton button, QPoint from, QPoint by) {
    QWidget& dragged = *window(name);
    const QPoint to = dragged.mapToGlobal(from + by);
    QTest::mousePress(dragged.windowHandle(), button, {}, from);
    QTest::mouseMove(dragged.windowHandle(), from + by / 2);
    // The window may have gone along.
    QTest::mouseMove(dragged.windowHandle(), dragged.mapFromGlobal(to));
    QTest::mouseRelease(dragged.windowHandle(), button, {}, dragged.mapFromGlobal(to));
}

void Stage::request_close(const std::string& name) {
    QCloseEvent request;
    QCoreApplication::sendEvent(window(name)->windowHandle(), &request);
}

void Stage::press_accessibly(const std::string& element) {
    auto* const actions = QAccessible::queryAccessibleInterface(&at(element))->actionInterface();
    const bool toggles = actions->actionNames().contains(actions->toggleAction());
    actions->doAction(toggles ? actions->toggleAction() : actions->pressAction());
}

void Stage::when(std::function<bool()> condition, std::function<void()> act) {
    ++awaited_;
    // A timer that waits for its own handler to return is dead in the loops inside it.
    auto look = std::make_shared<std::function<void()>>();
    *look = [this, look, condition = std::move(condition), act = std::move(act)] {
        if (condition() && !InputGate::instance().closed()) {
            --awaited_;
            const auto now = std::exchange(*look, {});
            act();
        } else {
            QTimer::singleShot(1, qApp, [look] { (*look)(); });
        }
    };
    QTimer::singleShot(0, qApp, [look] { (*look)(); });
}

void Stage::when_shown(const std::string& name, std::function<void()> act) {
    when([name] { return shown(name); }, std::move(act));
}

void Stage::in_menu(std::function<void()> act) {
    when([] { return QApplication::activePopupWidget() != nullptr; }, std::move(act));
}

void Stage::settle() {
    do {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents();
    } while (InputGate::instance().closed());
}

void Stage::script(int face) {
    for (int step = 0; step < 6; ++step) {
        world->random_values.push_back(0);
        world->random_values.push_back(static_cast<float>((step == 5 ? face - 0.5 : 0.5) / 6.0));
    }
}

void Stage::throw_die(int face) {
    script(face);
    click("Tärning");
    settle();
    ASSERT_EQ(Senaste_slag, face);
    ASSERT_TRUE(world->random_values.empty());
}

void Stage::place(int player, const std::string& squares) {
    Spelardata& data = Spelare[player];
    std::istringstream numbers(squares);
    data.Antal_i_boet = data.Antal_klara = 0;
    for (int n = 1; n <= pieces_each; ++n) {
        int square = -1;
        numbers >> square;
        const int b = data.Bildnr[n - 1];
        data.Ruta[n] = static_cast<std::int16_t>(square);
        if (square == square_nest) ++data.Antal_i_boet;
        if (square == square_finished) ++data.Antal_klara;
        Pjäs_visible[b] = square != square_finished;
        screen().set_visible({Element::Pjäs, b}, Pjäs_visible[b]);
        if (square == square_nest)
            move_to_nest_place(b);
        else
            screen().move({Element::Pjäs, b}, Positioner[player][axis_x][square],
                          Positioner[player][axis_y][square]);
    }
    show_finished_count();
    Uppdatera_plus();
}

void Stage::pass_to(int player) {
    while (Aktuell_spelare != player) {
        throw_die(3);
        click("butNästa");
    }
}

void Stage::win(std::function<void()> answer) {
    const int winner = Aktuell_spelare;
    place(winner, "55 55 44 55");
    throw_die(1);
    world->heard();
    when_shown("Grattis", std::move(answer));
    click(numbered("Pjäs", 4 * (winner - 1) + 2));
    settle();
}

std::string Stage::squares(int player) {
    std::string result;
    for (const int square : Spelare[player].Ruta)
        result += (result.empty() ? "" : " ") + std::to_string(square);
    return result;
}

QImage Stage::grab(const std::string& name) { return window(name)->grab().toImage(); }

QColor Stage::pixel(const QImage& grabbed, QPointF place) {
    const QPointF device = place * grabbed.devicePixelRatio();
    return grabbed.pixelColor(static_cast<int>(device.x()), static_cast<int>(device.y()));
}

namespace {

struct Corner {
    int left, top, layout_rows_apart, highlight_left, highlight_top;
    QRgb colour;
};

constexpr Corner corners[] = {
    {36, 34, 44, 6, 8, 0xFF800000},
    {274, 34, 46, 244, 8, 0xFF000080},
    {274, 272, 44, 244, 246, 0xFF008000},
    {36, 274, 42, 6, 246, 0xFFC0C000},
};

std::optional<Picture> picture_in(QWidget& element) {
    if (auto* button = qobject_cast<PictureButton*>(&element)) return button->picture();
    return dynamic_cast<Image&>(element).picture();
}

/// The place of a piece, and in its nest before the first new game the layout's place too.
bool stands_right(QPoint place, int player, int piece) {
    const int square = Spelare[player].Ruta[piece];
    if (square != square_nest)
        return place ==
               QPoint(Positioner[player][axis_x][square], Positioner[player][axis_y][square]);
    const Corner& corner = corners[player - 1];
    const QPoint home(corner.left + (piece % 2 == 0 ? 42 : 0), corner.top + (piece > 2 ? 42 : 0));
    const QPoint layout(home.x(), corner.top + (piece > 2 ? corner.layout_rows_apart : 0));
    return place == home || (board_resets == 0 && place == layout);
}

bool in_stack(int player, int piece) {
    const auto& Ruta = Spelare[player].Ruta;
    for (int lower = 1; lower < piece; ++lower)
        if (Ruta[lower] == Ruta[piece] && Ruta[piece] > 0 && Ruta[piece] < 45) return true;
    return false;
}

}  // namespace

std::string Stage::difference() {
    for (int b = 0; b < piece_count; ++b) {
        const std::string index = numbered("", b);
        const int player = b / 4 + 1;
        const int piece = b % 4 + 1;
        const int square = Spelare[player].Ruta[piece];
        QWidget& picture = at("Pjäs" + index);
        if (picture.isHidden() != (square == square_finished)) return "Pjäs visible " + index;
        if (!picture.isHidden() && !stands_right(picture.pos(), player, piece))
            return "place of Pjäs" + index;
        if (picture_in(picture) != nth(Picture::piece_1, player - 1)) return "picture" + index;
        QWidget& marker = at("Plus" + index);
        if (marker.isHidden() == in_stack(player, piece)) return "Plus visible " + index;
        if (!marker.isHidden() && marker.pos() != picture.pos()) return "place of Plus" + index;
    }
    const Corner& corner = corners[Aktuell_spelare - 1];
    auto& highlight = dynamic_cast<Circle&>(at("shpHålbak"));
    if (highlight.pos() != QPoint(corner.highlight_left, corner.highlight_top) ||
        highlight.colour() != QColor(corner.colour))
        return "highlight";

    QWidget& die = at("Tärning");
    const std::string tag = Senaste_slag == 0 ? "" : std::to_string(Senaste_slag);
    const int face = std::max<int>(Senaste_slag, 1);
    if (die.isEnabled() != Tärning_enabled) return "die enabled";
    if (die.property("Tag").toString().toStdString() != tag) return "tag of the die";
    if (picture_in(die) != nth(Picture::die_1, face - 1)) return "face of the die";
    if (die.accessibleName() != QStringLiteral("Tärning, visar %1").arg(face)) return "die's name";

    if (visible("butNästa") != butNästa_visible) return "butNästa";
    if (visible("butEn_pjäs") != butEn_pjäs_visible) return "butEn_pjäs";
    if (visible("butTvå_pjäser") != butTvå_pjäser_visible) return "butTvå_pjäser";
    const Spelardata& current = Spelare[Aktuell_spelare];
    if (text("labPjäser_klara") !=
        "Antal pjäser klara: " + std::to_string(static_cast<int>(current.Antal_klara)))
        return "labPjäser_klara";
    // While a start window is open the names may be ahead of the sentence.
    if (shown("Startfrm")) return "";
    const bool s = current.Namn.ends_with('s') || current.Namn.ends_with('S');
    if (text("labVisa_tur") != current.Namn + (s ? " tur!" : "s tur!")) return "labVisa_tur";
    if (picture_in(at("imgVisa_tur")) != nth(Picture::piece_1, Aktuell_spelare - 1))
        return "imgVisa_tur";
    return "";
}

std::string numbered(const std::string& name, int index) {
    return name + "(" + std::to_string(index) + ")";
}

}  // namespace brusbo::test
