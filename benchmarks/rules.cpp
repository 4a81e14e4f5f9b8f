// Plays whole four-player games through the rules and prints what they cost.
//
// Ends with 1 when a handler allocates memory, when a game takes a millisecond of CPU or more, or
// when a throw late in a long game costs more than one early in it.

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <new>
#include <random>

#include "engine/engine.h"

namespace {

std::uint64_t allocations = 0;

}  // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

using namespace brusbo;

/// Counts steps and throws; shows nothing, waits for nothing.
class Silent final : public Screen, public Services {
   public:
    std::uint64_t throws = 0, wins = 0;

    void set_text(Element, std::string_view) override {}
    void set_visible(ElementId, bool) override {}
    void set_enabled(Element, bool) override {}
    void set_picture(ElementId, StorePicture) override {}
    void move(ElementId, std::int32_t, std::int32_t) override {}
    void set_left(Element, std::int32_t) override {}
    void set_fill_colour(Element, Colour) override {}
    void set_tag(Element, std::string_view) override {}
    void set_focus(Element) override {}
    LayoutPlace layout_place(ElementId) const override { return {0, 0}; }

    void play_sound(std::string_view) override {}
    void pause(int) override {}
    double time_of_day() override { return 43200; }
    void seed_random(double) override { ++throws; }
    float random_value() override { return static_cast<float>(generator_() >> 8) * 0x1p-24F; }
    void beep() override {}
    void show_Grattis() override {
        ++wins;
        Grattis_öppen = true;
        Nytt_snabbt();
    }
    void close_Grattis() override {}
    void show_Startfrm() override {}

    int below(int count) { return static_cast<int>(generator_() % static_cast<unsigned>(count)); }

   private:
    std::mt19937 generator_{1};
};

void load() {
    std::ifstream file(BRUSBO_ASSETS "/data/brs.dat", std::ios::binary);
    read_positions(file);
    static constexpr const char* names[] = {"Röd", "Blå", "Grön", "Gul"};
    for (int p = 1; p <= most_players; ++p) {
        Spelare[p].Namn = names[p - 1];
        for (int j = 0; j < pieces_each; ++j)
            Spelare[p].Bildnr[j] = static_cast<std::uint8_t>(pieces_each * (p - 1) + j);
    }
    Antal_spelare = most_players;
    Ljud_på = true;
    Nytt_snabbt();
}

/// A click as a player makes it who tries the pieces from a random one on.
void click(Silent& players) {
    if (Tärning_enabled) return Tärning_Click();
    if (butNästa_visible) return butNästa_Click();
    if (butTvå_pjäser_visible && players.below(3) == 0) return butTvå_pjäser_Click();
    if (butEn_pjäs_visible && players.below(2) == 0) return butEn_pjäs_Click();
    const int first = players.below(pieces_each);
    for (int i = 0; i < pieces_each && !Har_flyttat && !Tärning_enabled; ++i) {
        const std::uint32_t game = board_resets;
        Pjäs_Click(static_cast<std::int16_t>(pieces_each * (Aktuell_spelare - 1) +
                                             (first + i) % pieces_each));
        if (board_resets != game) return;
    }
}

double cpu_seconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

double play_throws(Silent& players, std::uint64_t count) {
    const std::uint64_t last = players.throws + count;
    const double start = cpu_seconds();
    while (players.throws < last) click(players);
    return (cpu_seconds() - start) / static_cast<double>(count);
}

/// One game that nobody wins, as finished pieces go back to their nests: how much a throw costs
/// in its last tenth, relative to the first. The median of several such games.
double growth(Silent& players, std::uint64_t tenth) {
    std::array<double, 15> ratios{};
    for (double& ratio : ratios) {
        Nytt_snabbt();
        const auto keep_going = [&] {
            const std::uint64_t last = players.throws + tenth;
            const double start = cpu_seconds();
            while (players.throws < last) {
                click(players);
                for (int b = 0; b < piece_count; ++b) {
                    Spelardata& owner = Spelare[b / pieces_each + 1];
                    std::int16_t& square = owner.Ruta[b % pieces_each + 1];
                    if (square != square_finished) continue;
                    square = square_nest;
                    --owner.Antal_klara;
                    ++owner.Antal_i_boet;
                    Pjäs_visible[b] = true;
                }
            }
            return cpu_seconds() - start;
        };
        const double first = keep_going();
        for (int part = 2; part < 10; ++part) keep_going();
        ratio = keep_going() / first;
    }
    std::ranges::sort(ratios);
    return ratios[ratios.size() / 2];
}

}  // namespace

int main() {
    constexpr std::uint64_t games = 20'000;
    Silent players;
    set_world(players, players);
    load();
    play_throws(players, 5'000);  // buffers have their size from here on

    const Silent before = players;
    const std::uint64_t allocations_before = allocations;
    const double start = cpu_seconds();
    while (players.wins < before.wins + games) click(players);
    const double seconds = cpu_seconds() - start;

    const std::uint64_t allocated = allocations - allocations_before;
    const double milliseconds = seconds * 1e3 / static_cast<double>(games);
    std::printf("throws per game          %.1f\n",
                static_cast<double>(players.throws - before.throws) / static_cast<double>(games));
    std::printf("CPU per game             %.4f ms\n", milliseconds);
    std::printf("allocations in all       %llu\n", static_cast<unsigned long long>(allocated));

    const double ratio = growth(players, 20'000);
    std::printf("cost of a throw, last tenth to first of 200000  %.3f\n", ratio);

    const bool good = allocated == 0 && milliseconds < 1 && ratio < 1.25;
    std::printf("%s\n", good ? "within bounds" : "OUT OF BOUNDS");
    return good ? 0 : 1;
}
