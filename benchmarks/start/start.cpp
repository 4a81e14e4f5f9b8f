// From exec to the painted start window, and the memory after the first sound, as ratios to a bare
// Qt Widgets program; and from the press on Starta to the painted main window.
#include <cstdio>
#include <cstdlib>

#include "benchmarks/watch/figures.h"
#include "benchmarks/watch/screen_watch.h"
#include "tests/display/harness/game.h"

namespace brusbo::display {
namespace {

class Bench {
   public:
    explicit Bench(int runs) : runs_(runs) {
        QImage board = picture_image(picture("board"));
        board.save(path("board.png"));
        for (int i = 0; i < 16; ++i)
            picture_image(nth(picture("piece-1"), i / 4))
                .save(path("piece-" + QString::number(i) + ".png"));
    }

    int run() {
        measure_starts();
        measure_memory();
        measure_Starta();
        return report_.exit_code();
    }

   private:
    static constexpr int warm_ups = 3;

    QString path(const QString& file) const {
        return QString::fromStdString(desktop_.home() / file.toStdString());
    }

    /// From exec until something else than the bare screen is seen in its middle, where the windows
    /// come. Whatever is painted, a window shows it in one piece.
    double start_time(const std::filesystem::path& folder, const std::string& program) {
        const QPoint middle(desktop_.person().size().width() / 2,
                            desktop_.person().size().height() / 2);
        const QRect area(middle - QPoint(20, 40), QSize(40, 80));
        wait_for("the screen to be free", [&] { return is_black(area); });
        const Child child({program}, desktop_.environment(), folder,
                          desktop_.home() / "program.log");
        const Moment begin = child.start();
        while (const auto drawn = watch_.wait_for_drawing(area, begin + std::chrono::seconds(30)))
            if (!is_black(area)) return in_milliseconds(*drawn - begin);
        throw std::runtime_error("no window came");
    }

    bool is_black(const QRect& area) const {
        const QImage seen = watch_.client().image(area);
        for (int y = 0; y < seen.height(); ++y)
            for (int x = 0; x < seen.width(); ++x)
                if (qGray(seen.pixel(x, y)) != 0) return false;
        return true;
    }

    void measure_starts() {
        std::vector<double> floor;
        std::vector<double> ours;
        std::vector<double> ratios;
        for (int run = -warm_ups; run < runs_; ++run) {
            const double bare = start_time(desktop_.home(), BENCH_FLOOR);
            const double game = start_time(BENCH_DATA, BENCH_PROGRAM);
            if (run < 0) continue;
            floor.push_back(bare);
            ours.push_back(game);
            ratios.push_back(game / bare);
        }
        report_.print("start, bare program, median", median(floor), "ms");
        report_.print("start, Brusbo, median", median(ours), "ms");
        report_.print("start, quartiles of the paired ratios: lower", quantile(ratios, 0.25), "");
        report_.print("start, quartiles of the paired ratios: upper", quantile(ratios, 0.75), "");
        report_.print("start, median of the paired ratios", median(ratios), "", 1.05);
    }

    void measure_memory() {
        double bare = 0;
        {
            const Child floor({BENCH_FLOOR}, desktop_.environment(), desktop_.home(),
                              desktop_.home() / "floor.log");
            wait_for("the bare program", [&] {
                return !is_black({desktop_.person().size().width() / 2, 500, 20, 20});
            });
            bare = proportional_memory(floor.id());
        }
        const Environment sound = start_sound_server(desktop_);
        Game game(desktop_, 1, sound);
        game.window(Shown::start);
        report_.print("memory, Brusbo with its start window",
                      proportional_memory(game.program().id()) / 1024, "MiB");
        game.play();
        // The sound thread goes on with its connection after it has read the file.
        double before = 0;
        const double ours = *wait_for("memory to stay", [&]() -> std::optional<double> {
            const double now = proportional_memory(game.program().id());
            std::this_thread::sleep_for(std::chrono::milliseconds(200));
            return std::exchange(before, now) == now ? std::optional(now) : std::nullopt;
        });
        report_.print("memory, bare program", bare / 1024, "MiB");
        report_.print("memory, Brusbo after its first sound", ours / 1024, "MiB");
        report_.print("memory, ratio", ours / bare, "", 1.2);
    }

    void measure_Starta() {
        std::vector<double> times;
        for (int run = 0; run < runs_; ++run) {
            Game game(desktop_);
            const WindowId start = game.window(Shown::start);
            // Over the board, to the right of where the start window was.
            const QRect start_place = desktop_.person().place(start);
            const QRect area(start_place.right() + 40, start_place.center().y(), 40, 80);
            const QPoint place = game.at(start, Starta);
            desktop_.person().point_at(place);
            watch_.wait_for_rest(area, std::chrono::milliseconds(100));
            desktop_.person().press();
            const Moment begin = Clock::now();
            desktop_.person().release();
            while (const auto drawn =
                       watch_.wait_for_drawing(area, begin + std::chrono::seconds(30)))
                if (!is_black(area)) {
                    times.push_back(in_milliseconds(*drawn - begin));
                    break;
                }
        }
        report_.print("from Starta to the painted main window, median", median(times), "ms");
    }

    const int runs_;
    Desktop desktop_{Manager::none};
    ScreenWatch watch_{desktop_.environment().at("DISPLAY")};
    Report report_;
};

}  // namespace
}  // namespace brusbo::display

int main(int argc, char** argv) {
    const int runs = argc > 1 ? std::atoi(argv[1]) : 41;
    if (runs < 1) {
        std::fprintf(stderr, "usage: bench_start [RUNS]\n");
        return 2;
    }
    return brusbo::display::Bench(runs).run();
}
