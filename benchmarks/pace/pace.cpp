// The game is played with the mouse on a real X server, which tells when a picture changes on its
// screen: how far from 200 ms that is, and whether the server has each picture before its pause.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "benchmarks/pace/player.h"
#include "benchmarks/watch/figures.h"

namespace brusbo::display {
namespace {

constexpr double pause = 200;  // milliseconds

void print_deviations(Report& report, const std::string& what,
                      const std::vector<double>& intervals) {
    std::vector<double> deviations;
    for (const double interval : intervals) deviations.push_back(std::abs(interval - pause));
    report.print(what + ": pictures", static_cast<double>(deviations.size()), "");
    report.print(what + ": deviation from 200 ms, median", median(deviations), "ms", 1);
    report.print(what + ": deviation, 99th percentile", quantile(deviations, 0.99), "ms", 8);
    report.print(what + ": deviation, most", quantile(deviations, 1), "ms");
}

void measure_pace(Report& report, std::size_t steps) {
    const Desktop desktop;
    ScreenWatch watch(desktop.environment().at("DISPLAY"));
    Game game(desktop);
    Player player(game, watch, BENCH_POSITIONS);
    while (player.throw_intervals().size() + player.walk_intervals().size() < steps)
        player.take_turn();
    std::vector<double> all = player.throw_intervals();
    all.insert(all.end(), player.walk_intervals().begin(), player.walk_intervals().end());
    print_deviations(report, "throws and walks", all);
    print_deviations(report, "throws", player.throw_intervals());
    if (!player.walk_intervals().empty())
        print_deviations(report, "walks", player.walk_intervals());
}

void ask_before_pauses(Report& report, int turns) {
    const Desktop desktop;
    ScreenWatch watch(desktop.environment().at("DISPLAY"));
    Game game(desktop, 1, {}, BENCH_ASKING_GAME);
    {
        Player player(game, watch, BENCH_POSITIONS);
        for (int turn = 0; turn < turns; ++turn) player.take_turn();
    }
    // A line for each pause: whether the server had the picture.
    int seen = 0;
    int unseen = 0;
    std::istringstream lines(game.program().output());
    for (std::string line; std::getline(lines, line);) (line == "seen" ? seen : unseen) += 1;
    report.print("pauses before which the server was asked", seen + unseen, "");
    report.print("pictures that it did not have yet", unseen, "", 0);
}

}  // namespace
}  // namespace brusbo::display

int main(int argc, char** argv) {
    using namespace brusbo::display;
    const int steps = argc > 1 ? std::atoi(argv[1]) : 500;
    if (steps < 1) {
        std::fprintf(stderr, "usage: bench_pace [STEPS]\n");
        return 2;
    }
    Report report;
    measure_pace(report, static_cast<std::size_t>(steps));
    ask_before_pauses(report, steps / 20 + 1);
    return report.exit_code();
}
