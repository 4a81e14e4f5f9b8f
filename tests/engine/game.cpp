#include "tests/engine/game.h"

#include <algorithm>
#include <regex>
#include <sstream>
#include <vector>

namespace brusbo::test {

namespace {

struct ShortName {
    std::string name, sequence;
};

std::vector<ShortName> short_names() {
    std::vector<ShortName> names = {
        {"tell ", "labMeddelande = "},
        {"count ", "labPjäser_klara = Antal pjäser klara: "},
        {"click", "sound s1.wav"},
        {"throw again",
         "enable Tärning; hide butNästa; tell Eftersom du slog 6 får du slå igen!; hide "
         "butEn_pjäs; hide butTvå_pjäser"},
        {"offer next", "show butNästa; focus butNästa"},
        {"end turn", "offer next; hide butEn_pjäs; hide butTvå_pjäser"},
        {"ask", "Slå genom att klicka på tärningen."},
        {"knock", "Du knuffade just hem en annans spelare!"},
        {"bounce", "Du studsade, för att ta dig ut måste du komma ut jämnt. Så har du inget mer."},
        {"finish", "Grattis, en till pjäs har lämnat spelområdet!"},
        {"block",
         "Du kan inte flytta pjäsen, en av dina egna pjäser står i vägen, flytta först den "
         "spelpjäsen."},
        {"one or two",
         "Du slog 6, du har nu möjlighet att välja mellan att flytta ut 1 eller 2 pjäser på "
         "spelplanen. Du kan också flytta en pjäs som redan står på spelplanen genom att klicka på "
         "den."},
        {"only one",
         "Du slog 6, men hara bara en pjäs i boet. Du kan flytta ut den eller flytta någon annan "
         "pjäs 6 steg."},
        {"one",
         "Du slog 1, du kan nu antingen flytta ut en spelare från boet. Eller flytta en spelare "
         "som redan står på spelplanen."},
        {"empty nest",
         "Du kan inte flytta någon pjäs från boet för du har inga där. Flytta istället en pjäs på "
         "spelplanen genom att klicka på den. "},
        {", full nest",
         ". Du kan inte flytta någon pjäs för alla står i boet. För att flytta ut någon på "
         "spelplanen måste du slå 1 eller 6."},
        {", no piece",
         ". Du kan inte flytta någon pjäs. Det är bara att låta nästa spelare fortsätta."},
        {", move",
         ". Det enda du kan göra nu är att flytta en av de pjäser du har på spelplanen genom att "
         "klicka på den."},
        {"turn Röd", "labVisa_tur = Röds tur!; picture imgVisa_tur gimgRöd 0"},
        {"turn Blå", "labVisa_tur = Blås tur!; picture imgVisa_tur gimgBlå 0"},
        {"turn Grön", "labVisa_tur = Gröns tur!; picture imgVisa_tur gimgGrön 0"},
        {"turn Gul", "labVisa_tur = Guls tur!; picture imgVisa_tur gimgGul 0"},
        {"light Röd", "move shpHålbak to 6,8; fill shpHålbak 128,0,0"},
        {"light Blå", "move shpHålbak to 244,8; fill shpHålbak 0,0,128"},
        {"light Grön", "move shpHålbak to 244,246; fill shpHålbak 0,128,0"},
        {"light Gul", "move shpHålbak to 6,246; fill shpHålbak 192,192,0"},
    };
    for (int face = 1; face <= 6; ++face) {
        std::string sequence = "seed 43200.5; sound s3.wav; ";
        for (const int picture : {0, 0, 0, 0, 0, face - 1})
            sequence +=
                "left Tärning 450; picture Tärning T " + std::to_string(picture) + "; pause 200; ";
        const std::string digit = std::to_string(face);
        names.push_back({"throw " + digit, sequence + "show labPjäser_klara; tag Tärning " + digit +
                                               "; disable Tärning"});
    }
    std::string markers, homes, pieces;
    for (int b = 0; b < piece_count; ++b) {
        const std::string index = "(" + std::to_string(b) + ")";
        markers += (b == 0 ? "hide Plus" : "; hide Plus") + index;
        homes += "move Pjäs" + index + " to home; ";
        pieces += "hide Plus" + index + "; show Pjäs" + index + "; ";
    }
    names.push_back({"clear", markers});
    names.push_back({"reset board", homes + pieces +
                                        "move shpHålbak to 6,8; enable Tärning; hide butNästa; "
                                        "hide butEn_pjäs; hide butTvå_pjäser; turn Röd; count 0"});
    return names;
}

}  // namespace

Game::Game() {
    reset_to_program_start();
    set_world(recorder, recorder);
    Antal_spelare = 2;
    Ljud_på = true;
    const Workplace workplace;
    std::filesystem::copy_file(good_positions, "brs.dat");
    Ladda_Positioner();
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
        for (int n = 1; n <= pieces_each; ++n) {
            words >> data.Ruta[n];
            if (data.Ruta[n] != square_nest) --data.Antal_i_boet;
            if (data.Ruta[n] == square_finished) ++data.Antal_klara;
            Pjäs_visible[data.Bildnr[n - 1]] = data.Ruta[n] != square_finished;
        }
    }
    Har_flyttat = true;
    if (face != 0) die(face)();
    recorder.effects.clear();
}

Click Game::die(int face) {
    return [this, face] {
        recorder.dice.script(face);
        Tärning_Click();
    };
}

void Game::run(std::initializer_list<Row> rows) {
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.purpose) + " [" + row.before + "]");
        set_up(row.before);
        ASSERT_EQ(broken_invariant(), nullptr);
        const std::string before = situation();
        row.click();
        const std::string effects = seen(), after = situation();
        EXPECT_EQ(effects + (after == before ? "" : " => " + after), row.result);
        EXPECT_EQ(broken_invariant(), nullptr);
    }
}

std::string Game::seen() {
    static const std::vector<ShortName> names = short_names();
    static const std::pair<std::regex, const char*> patterns[] = {
        {std::regex("sound s2.wav; move Pjäs.(\\d+). to (\\S+); pause 200; "), "$1 walks $2; "},
        {std::regex("move Pjäs.(\\d+). to home; tell knock; "), "knock $1; "},
        {std::regex("show Plus.(\\d+).; move Plus.\\1. to (\\S+); "), "mark $1 on $2; "},
        {std::regex("((clear|mark \\d+ on \\S+); )(hide Plus\\S+; )+"), "$1"},
    };
    static const std::regex two_walks("(\\d+ walks )([^;]*); \\1");

    std::string all = std::exchange(recorder.effects, "");
    for (const auto& [name, sequence] : names)
        for (std::size_t at = all.find(sequence); at != std::string::npos; at = all.find(sequence))
            all.replace(at, sequence.size(), name);
    for (const auto& [pattern, name] : patterns) all = std::regex_replace(all, pattern, name);
    while (std::regex_search(all, two_walks)) all = std::regex_replace(all, two_walks, "$1$2 ");
    return all.substr(0, all.empty() ? 0 : all.size() - 2);
}

std::string Game::situation() {
    std::string result;
    for (int player = 1; player <= most_players; ++player) result += squares(player) + " / ";
    result.resize(result.size() - 3);
    const std::string nest = " / 0 0 0 0";
    while (result.ends_with(nest)) result.resize(result.size() - nest.size());
    result += !Tärning_enabled ? butNästa_visible ? ", over" : ", move"
              : Har_flyttat    ? ", throw"
                               : ", first throw";
    if (butEn_pjäs_visible) result += ", one";
    if (butTvå_pjäser_visible) result += ", two";
    return result;
}

}  // namespace brusbo::test
