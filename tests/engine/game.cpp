#include "tests/engine/game.h"

#include <stdlib.h>

#include <algorithm>
#include <functional>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace brusbo::test {

Workplace::Workplace() : before_(std::filesystem::current_path()) {
    std::string pattern = std::filesystem::temp_directory_path() / "brusbo-XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no directory for the test");
    path_ = pattern;
    std::filesystem::current_path(path_);
}

Workplace::~Workplace() {
    std::filesystem::current_path(before_);
    std::filesystem::remove_all(path_);
}

Game::Game() {
    reset_to_program_start();
    connect(recorder, recorder);
    Antal_spelare = 2;
    Ljud_på = true;
    {
        const Workplace workplace;
        std::filesystem::copy_file(good_positions, "brs.dat");
        Ladda_Positioner();
    }
    Nollställ_spelare();
    static constexpr const char* names[] = {"Röd", "Blå", "Grön", "Gul"};
    for (int p = 1; p <= most_players; ++p) Spelare[p].Namn = names[p - 1];
    recorder.effects.clear();
}

void Game::set_up(const std::string& before) {
    Nytt_snabbt();
    Antal_spelare = 2;
    std::istringstream words(before);
    std::string word;
    int face = 0;
    words >> Aktuell_spelare >> word;
    if (word == "throws") words >> face >> word;
    for (std::int16_t player = 1; words; words >> word, ++player) {
        Spelardata& data = Spelare[player];
        Antal_spelare = std::max({Antal_spelare, player, Aktuell_spelare});
        data.Antal_i_boet = 0;
        for (int n = 1; n <= pieces_each; ++n) {
            words >> data.Ruta[n];
            if (data.Ruta[n] == square_nest) ++data.Antal_i_boet;
            if (data.Ruta[n] == square_finished) ++data.Antal_klara;
            Pjäs_visible[data.Bildnr[n - 1]] = data.Ruta[n] != square_finished;
        }
    }
    Har_flyttat = true;
    recorder.script_throws({face});
    if (face != 0)
        Tärning_Click();
    else
        recorder.random_values.clear();
    recorder.effects.clear();
}

void Game::click(const std::string& element) {
    if (element == "butNästa") return butNästa_Click();
    if (element == "butEn_pjäs") return butEn_pjäs_Click();
    if (element == "butTvå_pjäser") return butTvå_pjäser_Click();
    const std::string piece = "Pjäs(", die = "Tärning ";
    if (element.starts_with(piece))
        return Pjäs_Click(static_cast<std::int16_t>(std::stoi(element.substr(piece.size()))));
    recorder.script_throws({std::stoi(element.substr(die.size()))});
    Tärning_Click();
}

void Game::run(std::initializer_list<Row> rows) {
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.purpose) + " [" + row.before + "] " + row.click);
        set_up(row.before);
        ASSERT_EQ(broken_invariant(), nullptr);
        const std::string before = squares() + ", " + turn_state();
        click(row.click);
        EXPECT_EQ(seen(), row.effects);
        EXPECT_EQ(squares() + ", " + turn_state(), *row.after == '\0' ? before : row.after);
        EXPECT_EQ(broken_invariant(), nullptr);
    }
}

std::string Game::seen() {
    static const std::string no_nest_buttons = "; hide butEn_pjäs; hide butTvå_pjäser";
    static const std::string message = "labMeddelande = ";
    static const std::pair<std::string, std::string> names[] = {
        {"show butNästa; focus butNästa" + no_nest_buttons, "end turn"},
        {"enable Tärning; hide butNästa; " + message + "Eftersom du slog 6 får du slå igen!" +
             no_nest_buttons,
         "throw again"},
        {message + "Du knuffade just hem en annans spelare!", "tell knock"},
        {message + "Du studsade, för att ta dig ut måste du komma ut jämnt. Så har du inget mer.",
         "tell bounce"},
        {message + "Grattis, en till pjäs har lämnat spelområdet!", "tell finish"},
        {message + "Du kan inte flytta pjäsen, en av dina egna pjäser står i vägen, flytta först "
                   "den spelpjäsen.",
         "tell block"},
        {message + "Slå genom att klicka på tärningen.", "ask for throw"},
        {"labPjäser_klara = Antal pjäser klara: ", "count "},
    };
    const auto lines = std::exchange(recorder.effects, {});
    const auto line = [&](std::size_t i) { return i < lines.size() ? lines[i] : ""; };
    std::string all;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (!all.empty()) all += "; ";
        std::size_t hidden = 0;
        while (line(i + hidden) == "hide Plus(" + std::to_string(hidden) + ")") ++hidden;
        if (hidden == piece_count) {
            all += "clear markers";
            for (i += hidden; line(i).find("Plus") != std::string::npos; ++i)
                if (!line(i).starts_with("hide")) all += "; " + line(i);
            --i;
        } else if (line(i) == "sound s2.wav" && line(i + 1).starts_with("move Pjäs") &&
                   line(i + 2) == "pause 200") {
            all += "step" + line(i + 1).substr(4);
            i += 2;
        } else {
            all += line(i);
        }
    }
    for (const auto& [sequence, name] : names)
        for (std::size_t at = all.find(sequence); at != std::string::npos; at = all.find(sequence))
            all.replace(at, sequence.size(), name);
    return all;
}

std::string Game::squares() {
    std::string result, nests;
    for (const Spelardata& player : Spelare) {
        std::string own;
        for (const int square : player.Ruta)
            own += (own.empty() ? "" : " ") + std::to_string(square);
        nests += (nests.empty() && result.empty() ? "" : " / ") + own;
        if (own == "0 0 0 0") continue;
        result += nests;
        nests.clear();
    }
    return result.empty() ? "nests" : result;
}

std::string Game::turn_state() {
    std::string result = Tärning_enabled    ? "throw awaited"
                         : butNästa_visible ? "turn over"
                                            : "move awaited";
    if (Har_flyttat == (result == "move awaited")) result += Har_flyttat ? ", moved" : ", new";
    if (butEn_pjäs_visible) result += ", one";
    if (butTvå_pjäser_visible) result += ", two";
    if (Tärning_enabled && butNästa_visible) result += ", next";
    return result;
}

void Game::expect_fresh_game() {
    for (const Spelardata& player : Spelare) {
        EXPECT_EQ(player.Antal_i_boet, 4);
        EXPECT_EQ(player.Antal_klara, 0);
    }
    EXPECT_EQ(squares(), "nests");
    EXPECT_EQ(turn_state(), "throw awaited, new");
    EXPECT_TRUE(std::ranges::all_of(Pjäs_visible, std::identity()));
    EXPECT_EQ(Aktuell_spelare, 1);
    EXPECT_FALSE(Grattis_öppen);
    EXPECT_EQ(broken_invariant(), nullptr);
}

}  // namespace brusbo::test
