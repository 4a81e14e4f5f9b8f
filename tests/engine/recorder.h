#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include "engine/engine.h"
#include "tests/engine/common.h"

namespace brusbo::test {

/// Writes down every effect in words, in order, and keeps what the screen then shows.
class Recorder final : public Screen, public Services {
   public:
    bool keep_effects = true;
    std::string effects;                  ///< each of them ends in "; "
    std::map<std::string, bool> visible;  ///< by element
    std::map<std::string, Point> places;
    std::function<void()> at_Grattis = [] {}, at_Startfrm = [] {};
    Dice dice;

    static std::string name(ElementId id) {
        static constexpr const char* names[] = {
            "labVisa_tur", "labMeddelande", "labPjäser_klara", "imgVisa_tur", "Tärning",
            "butEn_pjäs",  "butTvå_pjäser", "butNästa",        "Pjäs",        "Plus",
            "shpHålbak",   "mnuArkiv",      "mnuOm",           "butMini",     "butAvsluta"};
        const std::string base = names[static_cast<int>(id.element)];
        const bool array = id.element == Element::Pjäs || id.element == Element::Plus;
        return array ? base + "(" + std::to_string(id.index) + ")" : base;
    }

    void set_text(Element label, std::string_view text) override { note(name(label), " = ", text); }
    void set_visible(ElementId element, bool shown) override {
        visible[name(element)] = shown;
        note(shown ? "show " : "hide ", name(element));
    }
    void set_enabled(Element element, bool enabled) override {
        note(enabled ? "enable " : "disable ", name(element));
    }
    void set_picture(ElementId element, StorePicture picture) override {
        static constexpr const char* stores[] = {
            "gimgRöd",  "gimgBlå",   "gimgGrön", "gimgGul",      "T",
            "gimgPlus", "gimgArkiv", "gimgOm",   "gimgMinimera", "GimgAvsluta"};
        note("picture ", name(element), " ", stores[static_cast<int>(picture.store)], " ",
             picture.index);
    }
    /// Where a piece or a marker goes is written as its owner's square or "home", if it is one.
    void move(ElementId element, std::int32_t left, std::int32_t top) override {
        const Point place = places[name(element)] = {left, top};
        std::string words = std::to_string(left) + "," + std::to_string(top);
        if (element.element != Element::shpHålbak) {
            for (int square = square_goal; square > square_nest; --square)
                if (place == point_of(element.index / 4 + 1, square))
                    words = std::to_string(square);
            if (place == home_of(element.index)) words = "home";
        }
        note("move ", name(element), " to ", words);
    }
    void set_left(Element element, std::int32_t twips) override {
        note("left ", name(element), " ", twips);
    }
    void set_fill_colour(Element shape, Colour colour) override {
        note("fill ", name(shape), " ", +colour.red, ",", +colour.green, ",", +colour.blue);
    }
    void set_tag(Element element, std::string_view text) override {
        note("tag ", name(element), " ", text);
    }
    void set_focus(Element element) override { note("focus ", name(element)); }
    /// Nest corners on half pixels, so that their rounding shows; the rules need no other places.
    LayoutPlace layout_place(ElementId element) const override {
        static constexpr LayoutPlace corners[] = {
            {36, 34}, {274, 34.5}, {273.5, 272.25}, {36, 274}};
        return corners[element.index / 4];
    }

    void play_sound(std::string_view file_name) override { note("sound ", file_name); }
    void pause(int milliseconds) override { note("pause ", milliseconds); }
    double time_of_day() override { return 43200.5; }
    void seed_random(double seed) override { note("seed ", seed); }
    float random_value() override { return dice.next(); }
    void beep() override { note("beep"); }
    void show_Grattis() override { note("show Grattis"), at_Grattis(); }
    void close_Grattis() override { note("close Grattis"); }
    void show_Startfrm() override { note("show Startfrm"), at_Startfrm(); }

   private:
    template <typename... Parts>
    void note(const Parts&... parts) {
        if (!keep_effects) return;
        std::ostringstream line;
        (line << ... << parts) << "; ";
        effects += line.str();
    }
};

}  // namespace brusbo::test
