// CPU time and wake-ups of all threads of the game over five seconds, in every state in which it
// waits for its players.
#include <fstream>
#include <map>

#include "benchmarks/watch/figures.h"
#include "tests/display/harness/game.h"

namespace brusbo::display {
namespace {

using std::chrono::seconds;

struct Cost {
    double wake_ups = 0;
    double cpu = 0;  // milliseconds

    bool operator==(const Cost&) const = default;
};

/// What each thread has cost so far.
std::map<std::string, Cost> costs(pid_t process) {
    std::map<std::string, Cost> result;
    const std::filesystem::path tasks = "/proc/" + std::to_string(process) + "/task";
    for (const auto& task : std::filesystem::directory_iterator(tasks)) {
        Cost& sum = result[task.path().filename()];
        std::ifstream status(task.path() / "status");
        for (std::string word; status >> word;) {
            double count = 0;
            if (word.find("ctxt_switches:") != std::string::npos && status >> count)
                sum.wake_ups += count;
        }
        double nanoseconds = 0;
        std::ifstream(task.path() / "schedstat") >> nanoseconds;
        sum.cpu += nanoseconds / 1e6;
    }
    return result;
}

class Bench {
   public:
    int run() {
        play({}, "no sound server");
        play(start_sound_server(desktop_), "sound server");
        win();
        return report_.exit_code();
    }

   private:
    /// Through the states of a game, with sound on.
    void play(const Environment& environment, const std::string& world) {
        Game game(desktop_, 1, environment);
        const auto rests = [&](const std::string& state) { measure(game, world + ", " + state); };
        game.window(Shown::start);
        rests("start window");
        const WindowId main = game.play();
        rests("throw awaited");

        // A turn that is over, then one whose throw waits for a nest button; more likely in this
        // order, but they come as they come.
        bool over = false;
        bool waiting = false;
        while (!over || !waiting) {
            game.throw_die(main);
            const bool nest_button = game.image(main, butEn_pjäs).pixel(4, 4) == 0xFFFFFF00;
            const QImage told = game.image(main, labMeddelande);
            if (!std::exchange(nest_button ? waiting : over, true))
                rests(nest_button ? "move awaited" : "turn over");
            if (nest_button)
                choose_quick_new_game(game, main);
            else
                game.click(main, butEn_pjäs);  // lies where butNästa does
            game.wait_for_change("the next throw", main, labMeddelande, told);
        }
        open_menu(game, main);
        rests("menu open");
        game.person().type({key_escape});
        game.wait_for_picture(main, mnuArkiv.topLeft(), picture("arkiv-0"));

        enter(game, main, mnuOm, picture("om-1"));
        rests("picture button lit");
        game.click(main, mnuOm);
        const WindowId about = game.window(Shown::about);
        rests("about window");
        game.click(about, Klar);
        game.wait_until_gone(Shown::about);

        enter(game, main, butAvsluta, picture("close-1"));
        game.click(main, butAvsluta);
        game.window(Shown::farewell);
        game.person().point_at({5, 5});
        rests("farewell window");
    }

    void win() {
        Game game(desktop_, 1, {}, BENCH_LAST_THROW);
        const WindowId main = game.play();
        game.throw_die(main);
        const QPoint last_piece = Picture1.topLeft() + QPoint(78 + 13, 78 + 13);
        game.click(main, {last_piece, QSize(1, 1)});
        game.window(Shown::winner);
        measure(game, "winner window");
    }

    static void enter(Game& game, WindowId main, const QRect& button, Picture lit) {
        game.enter(main, button);
        game.wait_for_picture(main, button.topLeft(), lit);
    }

    static WindowId open_menu(Game& game, WindowId main) {
        enter(game, main, mnuArkiv, picture("arkiv-1"));
        game.click(main, mnuArkiv);
        return game.menu();
    }

    static void choose_quick_new_game(Game& game, WindowId main) {
        const QRect menu = game.person().place(open_menu(game, main));
        game.person().click({menu.center().x(), menu.top() + menu.height() * 45 / 100});
        game.wait_for_picture(main, mnuArkiv.topLeft(), picture("arkiv-0"));
        game.person().point_at(game.at(main, QPoint(380, 250)));
    }

    void measure(Game& game, const std::string& state) {
        const pid_t process = game.program().id();
        // What was done before may still have to come to an end: sounds, tool tips, connections.
        std::map<std::string, Cost> before;
        wait_for("the program to come to rest", [&] {
            const auto last = std::exchange(before, costs(process));
            std::this_thread::sleep_for(seconds(3));
            return last == before;
        });
        before = costs(process);
        std::this_thread::sleep_for(seconds(5));
        Cost spent;
        for (auto& [thread, now] : costs(process)) {
            spent.wake_ups += now.wake_ups - before[thread].wake_ups;
            spent.cpu += now.cpu - before[thread].cpu;
            before.erase(thread);
        }
        // A thread that has ended woke up for that.
        spent.wake_ups += static_cast<double>(before.size());
        report_.print(state + ": wake-ups", spent.wake_ups, "", 0);
        report_.print(state + ": CPU", spent.cpu, "ms", 0);
    }

    Desktop desktop_;
    Report report_;
};

}  // namespace
}  // namespace brusbo::display

int main() { return brusbo::display::Bench().run(); }
