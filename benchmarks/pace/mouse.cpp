// How soon the screen shows what a hundred movements of the mouse come to: over the picture
// buttons, and dragging the window by its title bar.
#include "benchmarks/watch/figures.h"
#include "benchmarks/watch/screen_watch.h"
#include "tests/display/harness/game.h"

namespace brusbo::display {
namespace {

constexpr int movements = 100;
constexpr int runs = 21;
constexpr double few_frames = 3 * 1000.0 / 60;  // milliseconds

int measure() {
    const Desktop desktop;
    const XClient& person = desktop.person();
    ScreenWatch watch(desktop.environment().at("DISPLAY"));
    Game game(desktop);
    const WindowId main = game.play();
    Report report;

    std::vector<double> hovers;
    for (int run = 0; run < runs; ++run) {
        const QRect buttons[] = {mnuArkiv, mnuOm, butMini, butAvsluta};
        const QRect title_bar = Namnlist.translated(person.place(main).topLeft());
        watch.wait_for_rest(title_bar, std::chrono::milliseconds(200));
        const Moment begin = Clock::now();
        for (int i = 0; i < movements; ++i) game.enter(main, buttons[i % 4]);
        person.point_at(game.at(main, QPoint(300, 200)));
        Moment end = begin;
        while (const auto drawn =
                   watch.wait_for_drawing(title_bar, Clock::now() + std::chrono::milliseconds(300)))
            end = *drawn;
        for (int i = 0; i < 4; ++i)
            if (!game.shows(main, buttons[i].topLeft(), nth(picture("arkiv-0"), 2 * i)))
                throw std::runtime_error("a button is still lit");
        hovers.push_back(in_milliseconds(end - begin));
    }
    report.print("a hundred movements over the buttons, median", median(hovers), "ms", few_frames);
    report.print("a hundred movements over the buttons, most", quantile(hovers, 1), "ms");

    std::vector<double> drags;
    for (int run = 0; run < runs; ++run) {
        const QPoint start = person.place(main).topLeft();
        const QPoint from = game.at(main, grip);
        const QPoint moved(run % 2 == 0 ? 100 : -100, 0);
        person.point_at(from);
        person.press();
        const Moment begin = Clock::now();
        for (int i = 1; i <= movements; ++i) person.point_at(from + moved * i / movements);
        while (person.place(main).topLeft() != start + moved)
            if (Clock::now() - begin > std::chrono::seconds(10))
                throw std::runtime_error("the window does not follow");
        drags.push_back(in_milliseconds(Clock::now() - begin));
        person.release();
        person.wait_for_free_pointer();
    }
    report.print("a hundred movements with the title bar, median", median(drags), "ms", few_frames);
    report.print("a hundred movements with the title bar, most", quantile(drags, 1), "ms");
    return report.exit_code();
}

}  // namespace
}  // namespace brusbo::display

int main() { return brusbo::display::measure(); }
