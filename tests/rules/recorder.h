#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <regex>
#include <sstream>
#include <string>

#include "engine/engine.h"
#include "tests/rules/common.h"

namespace brusbo::test {

/// Writes down every effect as a line, in order, and keeps what the screen then shows.
class Recorder final : public Screen, public Services {
   public:
    std::string effects;
    std::string told;   ///< the texts of the message line, each with a line break behind it
    std::string heard;  ///< "12": s1.wav, then s2.wav; "!": the beep
    std::function<void()> at_Grattis = [] {}, at_Startfrm = [] {};
    Dice dice;

    /// What was last given: `shown("visible", {Element::Pjäs, 3})` is "1" or "0"; "" before.
    const std::string& shown(std::string_view what, ElementId id) {
        return shown_[static_cast<int>(id.element)][id.index][what];
    }

    void set_text(Element id, std::string_view text) override {
        give("text", id, std::string(text));
        if (id == Element::labMeddelande) told.append(text).append(1, '\n');
    }
    void set_visible(ElementId id, bool on) override { give("visible", id, std::to_string(on)); }
    void set_enabled(Element id, bool on) override { give("enabled", id, std::to_string(on)); }
    void set_picture(ElementId id, StorePicture picture) override {
        static constexpr const char* stores[] = {
            "gimgRöd ",  "gimgBlå ",   "gimgGrön ", "gimgGul ",      "T ",
            "gimgPlus ", "gimgArkiv ", "gimgOm ",   "gimgMinimera ", "GimgAvsluta "};
        give("picture", id,
             stores[static_cast<int>(picture.store)] + std::to_string(picture.index));
    }
    void move(ElementId id, std::int32_t left, std::int32_t top) override {
        give("place", id, std::to_string(left) + "," + std::to_string(top));
    }
    void set_left(Element id, std::int32_t twips) override {
        give("left", id, std::to_string(twips));
    }
    void set_fill_colour(Element id, Colour colour) override {
        give("fill", id, std::to_string(65536 * colour.red + 256 * colour.green + colour.blue));
    }
    void set_tag(Element id, std::string_view text) override { give("tag", id, std::string(text)); }
    void set_focus(Element id) override { give("focus", id, ""); }
    /// Nest corners on half pixels, so that their rounding shows; the rules need no other places.
    LayoutPlace layout_place(ElementId id) const override {
        static constexpr LayoutPlace corners[] = {
            {36, 34}, {274, 34.5}, {273.5, 272.25}, {36, 274}};
        return corners[id.index / 4];
    }

    void play_sound(std::string_view file_name) override {
        heard += file_name.substr(1, 1);
        note("sound " + std::string(file_name));
    }
    void pause(int milliseconds) override { note("pause " + std::to_string(milliseconds)); }
    double time_of_day() override { return 43200.5; }
    void seed_random(double seed) override { note("seed " + std::to_string(seed)); }
    float random_value() override { return dice.next(); }
    void beep() override { heard += '!', note("beep"); }
    void show_Grattis() override { note("show Grattis"), at_Grattis(); }
    void close_Grattis() override { note("close Grattis"); }
    void show_Startfrm() override { note("show Startfrm"), at_Startfrm(); }

   private:
    void note(const std::string& line) { effects += line + '\n'; }
    void give(std::string_view what, ElementId id, const std::string& value) {
        static constexpr const char* names[] = {
            "labVisa_tur", "labMeddelande", "labPjäser_klara", "imgVisa_tur", "Tärning",
            "butEn_pjäs",  "butTvå_pjäser", "butNästa",        "Pjäs",        "Plus",
            "shpHålbak",   "mnuArkiv",      "mnuOm",           "butMini",     "butAvsluta"};
        effects.append(names[static_cast<int>(id.element)]).append(1, ' ');
        effects.append(std::to_string(id.index)).append(1, ' ').append(what).append(1, ' ');
        note(value);
        shown_[static_cast<int>(id.element)][id.index][what] = value;
    }

    std::map<std::string_view, std::string> shown_[15][piece_count];  // by element and index
};

/// One click in one situation.
struct Row {
    const char* purpose;
    /// "2 throws 6: 0 0 0 0 / 5 0 55 9": the current player, the throw (left out: none yet) and
    /// the squares of players 1, 2, ...; pieces of who is not named are in the nest.
    const char* before;
    std::function<void()> click;
    const char* heard;  ///< as `Recorder::heard`
    std::string told;   ///< "studsade, slå igen": a word or more of each message, in order
    std::string after;  ///< as `Game::situation`; "" when it stays as it is
};

/// The first game of a run with the committed positions file, four players, sound on, as when the
/// main window opens.
class Game : public testing::Test {
   protected:
    Game() {
        reset_to_program_start();
        set_world(recorder, recorder);
        Antal_spelare = 4;
        Ljud_på = true;
        std::filesystem::current_path(good_positions.parent_path());
        Ladda_Positioner();
        Nollställ_spelare();
        for (int p = 1; p <= most_players; ++p) Spelare[p].Namn = std::to_string(p);
    }

    /// Brings about a situation written as in `Row::before`, with a real throw.
    void set_up(const std::string& before) {
        Nytt_snabbt();
        std::istringstream words(before);
        std::string word;
        int face = 0;
        words >> Aktuell_spelare >> word;
        if (word == "throws") words >> face >> word;
        for (int player = 1; words; words >> word, ++player) {
            Spelardata& data = Spelare[player];
            for (std::int16_t& square : data.Ruta) words >> square;
            const auto on = [&](int square) { return std::ranges::count(data.Ruta, square); };
            data.Antal_i_boet = static_cast<std::uint8_t>(on(square_nest));
            data.Antal_klara = static_cast<std::uint8_t>(on(square_finished));
        }
        for (int b = 0; b < piece_count; ++b) Pjäs_visible[b] = square_of(b) != square_finished;
        Har_flyttat = true;
        if (face != 0) recorder.dice.script(face), Tärning_Click();
        recorder.heard = recorder.told = "";
    }

    void run(std::initializer_list<Row> rows) {
        for (const Row& row : rows) {
            SCOPED_TRACE(std::string(row.purpose) + " [" + row.before + "]");
            set_up(row.before);
            const std::string before = situation();
            row.click();
            EXPECT_EQ(recorder.heard, row.heard);
            const std::regex words("([^,]+)(, |$)");
            const std::string told = std::regex_replace(row.told, words, ".*$1.*\n");
            EXPECT_TRUE(std::regex_match(recorder.told, std::regex(told))) << recorder.told;
            EXPECT_EQ(situation(), row.after.empty() ? before : row.after);
            EXPECT_EQ(broken_invariant(), nullptr);
        }
    }

    /// "5 0 0 55 / 0 0 9 0, over": the squares of the players up to the last who is not in the
    /// nest; then what is awaited ("over": the next player) and the nest exits that are offered.
    static std::string situation() {
        std::string result = squares(1);
        for (int player = 2; player <= most_players; ++player) result += " / " + squares(player);
        while (result.ends_with(" / 0 0 0 0")) result.resize(result.size() - 10);
        result += Tärning_enabled ? ", throw" : butNästa_visible ? ", over" : ", move";
        if (butEn_pjäs_visible) result += ", one";
        if (butTvå_pjäser_visible) result += ", two";
        return result;
    }

    Recorder recorder;
};

}  // namespace brusbo::test
