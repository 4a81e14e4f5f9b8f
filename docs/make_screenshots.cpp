// Makes the screenshots of this folder from the program's own windows: make_screenshots FOLDER
// At a scale of the display other than 1 only the main window is taken.

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QPixmap>
#include <cstdio>
#include <deque>
#include <initializer_list>

#include "dialogs/program.h"
#include "engine/engine.h"

namespace {

using namespace brusbo;

/// The program with faces of our choice, without sound and without pauses.
class Director : public Program {
   public:
    void play_sound(std::string_view) override {}
    void pause(int) override {}
    float random_value() override { return value; }

    float value = 0;
};

struct Piece {
    int player, number;
    std::int16_t square;
};

class Photographer {
   public:
    explicit Photographer(const QDir& folder) : folder_(folder) {
        director_.Main();
        wait_for([] { return Antal_spelare != 0 && Spelare[1].Antal_i_boet == pieces_each; });
    }

    void take_all() {
        const bool scaled = qApp->devicePixelRatio() != 1;
        QWidget* const start = window("Startfrm");
        if (!scaled) take(start, "start");
        Antal_spelare = 4;
        start->hide();
        board_ = static_cast<MFrm*>(window("MFrm"));
        board_->show_active();
        QCoreApplication::processEvents();

        throw_face(1);
        if (!scaled) take(board_, "first-throw");
        const char* const names[] = {"game-red", "game-blue", "game-green", "game-yellow"};
        for (std::int16_t player = 1; player <= most_players; ++player) {
            set_middle_game(player);
            throw_face(player + 1);
            if (!scaled || player == 1)
                take(board_, scaled ? "game-at-scale-2" : names[player - 1]);
        }
        if (!scaled) take_rest();
    }

   private:
    void take_rest() {
        set_middle_game(1);
        place({1, 1, 43});
        throw_face(4);
        Pjäs_Click(0);
        take(board_, "bounce");

        const char* const names[] = {"winner-red", "winner-blue", "winner-green", "winner-yellow"};
        const std::uint8_t finished[] = {2, 3, 1, 0};
        for (std::int16_t player = 1; player <= most_players; ++player) {
            for (int p = 1; p <= most_players; ++p)
                Spelare[p].Antal_klara = p == player ? 4 : finished[p - 1];
            Aktuell_spelare = player;
            Grattis winner;
            take(&winner, names[player - 1]);
        }
        frmOm about;
        take(&about, "about");
        Slut farewell;
        take(&farewell, "farewell");
    }

    template <typename Condition>
    static void wait_for(Condition condition) {
        QElapsedTimer patience;
        for (patience.start(); !condition() && patience.elapsed() < 10000;)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    }

    static QWidget* window(const char* name) {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->objectName() == QLatin1String(name)) return widget;
        std::fprintf(stderr, "no window %s\n", name);
        std::exit(1);
    }

    void take(QWidget* widget, const char* name) {
        QCoreApplication::processEvents();
        const QString file = folder_.filePath(QString::fromLatin1(name) + ".png");
        if (!widget->grab().save(file)) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
            std::exit(1);
        }
    }

    void throw_face(int face) {
        director_.value = (static_cast<float>(face) - 0.5F) / 6;
        Tärning_Click();
    }

    static void place(Piece piece) {
        Spelardata& player = Spelare[piece.player];
        std::int16_t& square = player.Ruta[piece.number];
        if (square == square_nest) --player.Antal_i_boet;
        square = piece.square;
        const int picture = player.Bildnr[piece.number - 1];
        if (square == square_finished) {
            ++player.Antal_klara;
            Pjäs_visible[picture] = false;
            screen().set_visible({Element::Pjäs, picture}, false);
        } else {
            screen().move({Element::Pjäs, picture}, Positioner[piece.player][axis_x][square],
                          Positioner[piece.player][axis_y][square]);
        }
    }

    static void set_middle_game(std::int16_t player) {
        Nytt_snabbt();
        for (const Piece piece : {Piece{1, 1, 17},
                                  {1, 2, 17},
                                  {1, 3, 42},
                                  {2, 4, 5},
                                  {2, 3, 5},
                                  {2, 2, square_finished},
                                  {3, 2, 41},
                                  {3, 4, 28},
                                  {4, 1, 1},
                                  {4, 2, 1},
                                  {4, 4, 44}})
            place(piece);
        Aktuell_spelare = player;
        Uppdatera_plus();
        Visa_tur();
        Move_BackShape();
        show_finished_count();
    }

    QDir folder_;
    Director director_;
    MFrm* board_ = nullptr;
};

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc != 2 || !QDir(QString::fromLocal8Bit(argv[1])).exists()) {
        std::fprintf(stderr, "usage: make_screenshots FOLDER\n");
        return 2;
    }
    prepare_application();
    Photographer(QDir(QString::fromLocal8Bit(argv[1]))).take_all();
    return 0;
}
