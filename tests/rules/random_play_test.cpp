// Whole games with a fixed seed: legal clicks until somebody wins, illegal ones in between, and one
// number that stands for every effect of all of them.

#include <cstdlib>
#include <fstream>

#include "tests/rules/recorder.h"

namespace brusbo::test {
namespace {

using Games = Game;

// What the games below are checked by has to see a fault itself.
TEST_F(Games, BrokenInvariantsAreSeen) {
    void (*const faults[])() = {
        [] { Antal_spelare = 1; },
        [] { Antal_spelare = 2; },
        [] { Antal_spelare = 5; },
        [] { Aktuell_spelare = 0; },
        [] { Aktuell_spelare = 4; },
        [] { ++Spelare[1].Antal_i_boet; },
        [] { ++Spelare[1].Antal_klara; },
        [] { Spelare[1].Ruta[2] = square_goal; },
        [] { Spelare[1].Ruta[2] = -1; },
        [] { Pjäs_visible[2] = true; },
        [] { Har_flyttat = true, Val12(false); },
        [] { Tärning_enabled = true; },
        [] { butNästa_visible = true; },
        [] { Val12(false), butNästa_visible = true; },
        [] { Val12(false), Har_flyttat = Tärning_enabled = butNästa_visible = true; },
        [] { butEn_pjäs_visible = false; },
        [] { Spelare[1].Ruta[1] = Spelare[1].Antal_i_boet = 1; },
        [] { Spelare[1].Ruta.fill(1), Spelare[1].Antal_i_boet = 0, butTvå_pjäser_visible = false; },
    };
    for (const auto& fault : faults) {
        set_up("1 throws 6: 0 5 55 0 / 0 0 0 0 / 7 0 0 0");
        ASSERT_EQ(broken_invariant(), nullptr);
        fault();
        EXPECT_NE(broken_invariant(), nullptr) << "fault " << &fault - faults;
    }
}

struct Button {
    Element element;
    const char* property;  ///< it can be clicked while this is "1"
    const bool& offered;
    void (*click)();
};
const Button buttons[] = {
    {Element::Tärning, "enabled", Tärning_enabled, Tärning_Click},
    {Element::butNästa, "visible", butNästa_visible, butNästa_Click},
    {Element::butEn_pjäs, "visible", butEn_pjäs_visible, butEn_pjäs_Click},
    {Element::butTvå_pjäser, "visible", butTvå_pjäser_visible, butTvå_pjäser_Click},
};

void expect_screen_shows_state(Recorder& recorder) {
    const auto shows = [&](const char* what, ElementId id, const std::string& value) {
        EXPECT_EQ(recorder.shown(what, id), value) << static_cast<int>(id.element) << id.index;
    };
    for (int b = 0; b < piece_count; ++b) {
        const ElementId piece(Element::Pjäs, b), marker(Element::Plus, b);
        const auto [left, top] = place_of(b);
        const std::string place = std::to_string(left) + "," + std::to_string(top);
        const bool finished = square_of(b) == square_finished;
        shows("visible", piece, finished ? "0" : "1");
        shows("visible", marker, is_marked(b) ? "1" : "0");
        if (!finished) shows("place", piece, place);
        if (is_marked(b)) shows("place", marker, place);
    }
    for (const Button& button : buttons)
        shows(button.property, button.element, button.offered ? "1" : "0");
}

TEST_F(Games, Signature) {
    std::mt19937 generator(20240607);
    const auto below = [&](unsigned count) { return static_cast<int>(generator() % count); };
    std::map<std::pair<int, int>, int> wins;  // by number of players and winner
    int games = 0;
    recorder.at_Startfrm = [&] {
        Nollställ_spelare();
        Antal_spelare = static_cast<std::int16_t>(games % 3 + 2);
        Ljud_på = below(4) != 0;
    };
    recorder.at_Grattis = [&] {
        ++games, ++wins[{Antal_spelare, Aktuell_spelare}];
        EXPECT_EQ(Spelare[Aktuell_spelare].Antal_klara, 4);
        const int choice = below(3);
        Grattis_öppen = choice == 1;
        if (choice != 0) Nytt_spel();
    };
    Nytt_spel();
    while (games < 90) {
        ASSERT_LT(recorder.effects.size(), 100'000'000U) << "games do not end";
        const bool won = Spelare[Aktuell_spelare].Antal_klara == 4;
        if (won || below(4000) == 0) won ? Nytt_spel() : Nytt_snabbt();
        // Clicks 0..15 are on pieces; now and then comes one that is not offered.
        int click = 0;
        bool offered = false;
        do {
            click = below(20);
            offered = click < piece_count ? click / 4 + 1 == Aktuell_spelare && !Har_flyttat
                                          : buttons[click - piece_count].offered;
        } while (!offered && below(32) != 0);
        const bool silent = !Ljud_på;
        const std::string before = situation();
        recorder.heard = "";
        click < piece_count ? Pjäs_Click(static_cast<std::int16_t>(click))
                            : buttons[click - piece_count].click();
        ASSERT_TRUE(offered || situation() == before) << before << ", then " << situation();
        ASSERT_TRUE(!silent || recorder.heard.find_first_not_of('!') == std::string::npos);
        ASSERT_EQ(broken_invariant(), nullptr);
        expect_screen_shows_state(recorder);
        if (HasFailure()) return;
    }
    EXPECT_EQ(wins.size(), 9U) << "everybody wins now and then";

    std::uint64_t signature = 0xcbf29ce484222325U;  // FNV-1a
    for (const char c : recorder.effects)
        signature = (signature ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
    if (const char* file = std::getenv("BRUSBO_EFFECTS")) std::ofstream(file) << recorder.effects;
    EXPECT_EQ(signature, 0x2a37bedd9fb60943U)
        << "The rules do something else, or in another order. To see what, run this test with\n"
           "BRUSBO_EFFECTS=FILE in the environment, here and in the version before, and compare\n"
           "the files. If all of it is meant, "
        << std::hex << "0x" << signature << " is the new signature.";
}

}  // namespace
}  // namespace brusbo::test
