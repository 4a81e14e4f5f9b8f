#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <sstream>
#include <stdexcept>
#include <string>

#include "engine/engine.h"
#include "tests/rules/common.h"

namespace brusbo::test {

/// "x y" of player 1's first square and the goal's y, or the error that stops the reading.
inline std::string outcome(const std::function<void()>& read) {
    try {
        read();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    const auto [x, y] = point_of(1, 1);
    return std::to_string(x) + " " + std::to_string(y) + " " +
           std::to_string(point_of(4, 45).second);
}

inline std::ostream& operator<<(std::ostream& out, ElementId id) {
    return out << static_cast<int>(id.element) << ' ' << id.index;
}

/// Writes down every effect as a line, in order.
class Recorder final : public Screen, public Services {
   public:
    std::ostringstream effects;  ///< elements and stores by number
    std::string told;            ///< " spelare! igen!": the last word of each message
    std::string heard;           ///< "12": s1.wav, then s2.wav; "!": the beep
    std::function<void()> at_Grattis = [] {}, at_Startfrm = [] {};
    Dice dice;

    void set_text(Element id, std::string_view text) override {
        note("text", id, text);
        if (id == Element::labMeddelande) told += text.substr(text.rfind(' '));
    }
    void set_visible(ElementId id, bool on) override { note("visible", id, on); }
    void set_enabled(Element id, bool on) override { note("enabled", id, on); }
    void set_picture(ElementId id, StorePicture picture) override {
        note("picture", id, static_cast<int>(picture.store), picture.index);
    }
    void move(ElementId id, std::int32_t x, std::int32_t y) override { note("place", id, x, y); }
    void set_left(Element id, std::int32_t twips) override { note("left", id, twips); }
    void set_fill_colour(Element id, Colour colour) override {
        note("fill", id, +colour.red, +colour.green, +colour.blue);
    }
    void set_tag(Element id, std::string_view text) override { note("tag", id, text); }
    void set_focus(Element id) override { note("focus", id); }
    /// Nest corners on half pixels, so that their rounding shows; the rules need no other places.
    LayoutPlace layout_place(ElementId id) const override {
        static constexpr LayoutPlace nests[] = {{36, 34}, {274, 34.5}, {273.5, 272.25}, {36, 274}};
        return nests[id.index / 4];
    }

    void play_sound(std::string_view file_name) override {
        heard += file_name[1], note("sound", file_name);
    }
    void pause(int milliseconds) override { note("pause", milliseconds); }
    double time_of_day() override { return 43200.5; }
    void seed_random(double seed) override { note("seed", seed); }
    float random_value() override { return dice.next(); }
    void beep() override { heard += '!', note("beep"); }
    void show_Grattis() override { note("show Grattis"), at_Grattis(); }
    void close_Grattis() override { note("close Grattis"); }
    void show_Startfrm() override { note("show Startfrm"), at_Startfrm(); }

   private:
    template <typename... Parts>
    void note(const char* what, const Parts&... parts) {
        effects << what;
        ((effects << ' ' << parts), ..., (effects << '\n'));
    }
};

/// One click in one situation.
struct Row {
    const char* purpose;
    /// "2 throws 6: 0 0 0 0 / 5 0 55 9": the current player, the throw (if any), the squares of
    /// players 1, 2, ...; who is not named is in the nest.
    const char* before;
    std::function<void()> click;
    const char* heard;  ///< as `Recorder::heard`
    const char* told;   ///< as `Recorder::told`
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
            EXPECT_EQ(recorder.told, row.told);
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
