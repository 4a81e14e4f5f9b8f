#include "tests/windows/stage.h"

#include <QAccessible>
#include <QApplication>
#include <QCloseEvent>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <sstream>
#include <stdexcept>

#include "mainwindow/layout.h"
#include "platform/ending.h"

namespace brusbo::test {

std::string numbered(const std::string& name, int index) {
    return name + "(" + std::to_string(index) + ")";
}

Stage::Stage() {
    std::filesystem::copy_file(good_positions, "brs.dat");
    program_end() = [this](int code) { ends.push_back(code); };
}

Stage::~Stage() {
    settle();
    EXPECT_EQ(awaited_, 0) << "something awaited never came";
    world.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Stage::begin() {
    world.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    reset_to_program_start();
    world = std::make_unique<World>();
    world->Main();
}

void Stage::load() {
    begin();
    const auto loaded = [] { return window("MFrm") != nullptr && !InputGate::instance().closed(); };
    ASSERT_TRUE(QTest::qWaitFor(loaded));
    settle();
    world->heard();
}

void Stage::start(int players) {
    load();
    if (players > 2) click(numbered("Startfrm/AntSpelare", players - 1));
    play("Startfrm/Starta");
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

std::optional<Picture> Stage::picture(const QWidget& element) {
    const auto* button = qobject_cast<const PictureButton*>(&element);
    return button != nullptr ? button->picture() : dynamic_cast<const Image&>(element).picture();
}

QColor Stage::pixel(const std::string& name, QPointF place) {
    const QImage image = window(name)->grab().toImage();
    const QPointF device = place * image.devicePixelRatio();
    return image.pixelColor(static_cast<int>(device.x()), static_cast<int>(device.y()));
}

void Stage::click(const std::string& element, Qt::MouseButton button) {
    QWidget& clicked = at(element);
    QTest::mouseClick(clicked.window()->windowHandle(), button, {},
                      clicked.mapTo(clicked.window(), clicked.rect().center()));
}

void Stage::hover(QPoint place) { QTest::mouseMove(window("MFrm")->windowHandle(), place); }

void Stage::key(const std::string& name, Qt::Key key, Qt::KeyboardModifiers held) {
    QTest::keyClick(window(name)->windowHandle(), key, held);
}

void Stage::request_close(const std::string& name) {
    QCloseEvent request;
    QCoreApplication::sendEvent(window(name)->windowHandle(), &request);
}

void Stage::press_accessibly(const std::string& element) {
    auto* const actions = QAccessible::queryAccessibleInterface(&at(element))->actionInterface();
    actions->doAction(actions->actionNames().first());
}

// With a timer for each look: one that waits for its own handler to return is dead in the loops
// inside it.
void Stage::when(std::function<bool()> cause, std::function<void()> act) {
    ++awaited_;
    QTimer::singleShot(1, qApp, [this, cause = std::move(cause), act = std::move(act)] {
        --awaited_;
        if (cause() && !InputGate::instance().closed())
            act();
        else
            when(cause, act);
    });
}

void Stage::when_shown(const std::string& name, std::function<void()> act) {
    when([name] { return shown(name); }, std::move(act));
}

void Stage::answer(const std::string& element) {
    when_shown(
        element.substr(0, element.find('/')), [element] { click(element); });
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

std::string Stage::play(const std::string& moves) {
    std::istringstream words(moves);
    for (std::string word; words >> word;) {
        const bool is_throw = word.size() == 1;
        if (is_throw) world->dice.script(word[0] - '0');
        click(is_throw ? "Tärning" : word);
        settle();
        EXPECT_TRUE(world->dice.scripted.empty()) << "no throw was awaited";
    }
    return world->heard();
}

void Stage::place(int player, const std::string& squares) {
    Spelardata& data = Spelare[player];
    data.Antal_i_boet = data.Antal_klara = 0;
    std::istringstream numbers(squares);
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

void Stage::win(std::function<void()> answer) {
    const int winner = Aktuell_spelare;
    place(winner, "55 55 44 55");
    play("1");
    when_shown("Grattis", std::move(answer));
    click(numbered("Pjäs", 4 * (winner - 1) + 2));
    settle();
}

std::string Stage::difference() {
    std::string differing;
    const auto check = [&](const std::string& name, bool right) {
        if (!right) differing += name + " ";
    };
    for (int b = 0; b < piece_count; ++b) {
        const QWidget& piece = at(numbered("Pjäs", b));
        const QWidget& marker = at(numbered("Plus", b));
        const bool finished = square_of(b) == square_finished;
        // Until the first new game begins pieces in their nests stand where they were made.
        const bool untouched = board_resets == 0 && square_of(b) == square_nest &&
                               piece.pos() == main_layout::Pjäs[b].place.pixels().topLeft();
        const bool in_place = untouched || Point(piece.x(), piece.y()) == place_of(b);
        check(numbered("Pjäs", b), piece.isHidden() == finished && (finished || in_place) &&
                                       picture(piece) == nth(brusbo::picture("piece-1"), b / 4));
        check(numbered("Plus", b), marker.isHidden() != is_marked(b) &&
                                       (marker.isHidden() || marker.pos() == piece.pos()));
    }
    static constexpr QRgb colours[] = {0xFF800000, 0xFF000080, 0xFF008000, 0xFFC0C000};
    const int p = Aktuell_spelare;
    const auto& highlight = as<Circle>("shpHålbak");
    check("shpHålbak", highlight.colour() == QColor(colours[p - 1]));
    check("shpHålbak", highlight.pos() == QPoint(p == 2 || p == 3 ? 244 : 6, p < 3 ? 8 : 246));

    const QWidget& die = at("Tärning");
    const int face = std::max<int>(Senaste_slag, 1);
    check("Tärning", die.isEnabled() == Tärning_enabled);
    check("Tärning", die.property("Tag").toInt() == Senaste_slag);
    check("Tärning", picture(die) == nth(brusbo::picture("die-1"), face - 1));
    check("Tärning", die.accessibleName() == QStringLiteral("Tärning, visar %1").arg(face));
    check("butNästa", visible("butNästa") == butNästa_visible);
    check("butEn_pjäs", visible("butEn_pjäs") == butEn_pjäs_visible);
    check("butTvå_pjäser", visible("butTvå_pjäser") == butTvå_pjäser_visible);

    const Spelardata& player = Spelare[p];
    check("labPjäser_klara",
          text("labPjäser_klara") == "Antal pjäser klara: " + std::to_string(+player.Antal_klara));
    // While a start window is open the names may be ahead of the sentence.
    if (shown("Startfrm")) return differing;
    const bool s = player.Namn.ends_with('s') || player.Namn.ends_with('S');
    check("labVisa_tur", text("labVisa_tur") == player.Namn + (s ? " tur!" : "s tur!"));
    check("imgVisa_tur", picture(at("imgVisa_tur")) == nth(brusbo::picture("piece-1"), p - 1));
    return differing;
}

}  // namespace brusbo::test
