#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/engine.h"

namespace brusbo::test {

/// Writes down every effect as a line of text, in order, and keeps what the screen then shows.
class Recorder final : public Elements, public Services {
   public:
    bool keep_effects = true;
    std::vector<std::string> effects;
    std::map<std::string, bool> visible;  ///< by element
    std::map<std::string, std::pair<int, int>> places;
    std::function<void()> at_Grattis = [] {}, at_Startfrm = [] {};
    double now = 43200.25;
    std::deque<float> random_values;  ///< used up first
    std::mt19937 generator;           ///< then this one delivers

    /// The effects since the last call, separated by "; ".
    std::string take() {
        std::string result;
        for (const std::string& line : effects) result += (result.empty() ? "" : "; ") + line;
        effects.clear();
        return result;
    }

    /// Makes the coming throws end on these faces, with the die at 450 and faces 1 on the way.
    void script_throws(const std::vector<int>& faces) {
        for (const int face : faces)
            for (int step = 0; step < 6; ++step) {
                random_values.push_back(0);
                random_values.push_back(static_cast<float>((step == 5 ? face - 0.5 : 0.5) / 6.0));
            }
    }

    static std::string name(ElementId id) {
        static constexpr const char* names[] = {
            "labVisa_tur", "labMeddelande", "labPjäser_klara", "imgVisa_tur", "Tärning",
            "butEn_pjäs",  "butTvå_pjäser", "butNästa",        "Pjäs",        "Plus",
            "shpHålbak",   "mnuArkiv",      "mnuOm",           "butMini",     "butAvsluta"};
        const std::string base = names[static_cast<int>(id.element)];
        const bool array = id.element == Element::Pjäs || id.element == Element::Plus;
        return array ? base + "(" + std::to_string(id.index) + ")" : base;
    }

    void set_text(Element label, std::string_view text) override {
        note(name(label) + " = " + std::string(text));
    }
    void set_visible(ElementId element, bool shown) override {
        visible[name(element)] = shown;
        note((shown ? "show " : "hide ") + name(element));
    }
    void set_enabled(Element element, bool enabled) override {
        note((enabled ? "enable " : "disable ") + name(element));
    }
    void set_picture(ElementId element, StorePicture picture) override {
        static constexpr const char* stores[] = {
            "gimgRöd",  "gimgBlå",   "gimgGrön", "gimgGul",      "T",
            "gimgPlus", "gimgArkiv", "gimgOm",   "gimgMinimera", "GimgAvsluta"};
        note("picture " + name(element) + " " + stores[static_cast<int>(picture.store)] + " " +
             std::to_string(picture.index));
    }
    void move(ElementId element, std::int32_t left, std::int32_t top) override {
        places[name(element)] = {left, top};
        note("move " + name(element) + " " + std::to_string(left) + "," + std::to_string(top));
    }
    void set_left(Element element, std::int32_t twips) override {
        note("left " + name(element) + " " + std::to_string(twips));
    }
    void set_fill_colour(Element shape, Colour colour) override {
        note("fill " + name(shape) + " " + std::to_string(colour.red) + "," +
             std::to_string(colour.green) + "," + std::to_string(colour.blue));
    }
    void set_tag(Element element, std::string_view text) override {
        note("tag " + name(element) + " " + std::string(text));
    }
    void set_focus(Element element) override { note("focus " + name(element)); }
    /// Half pixels, so that the rounding of the nest corners shows; rounded as in the main window.
    LayoutPlace layout_place(ElementId element) const override {
        static constexpr LayoutPlace corners[] = {
            {36, 34}, {274, 34.5}, {273.5, 272.25}, {36, 274}};
        const LayoutPlace corner = corners[element.index / 4];
        const bool right = element.index % 2 == 1;
        const bool lower = element.index % 4 >= 2;
        return {corner.left + (right ? 42 : 0), corner.top + (lower ? 44 : 0)};
    }

    void play_sound(std::string_view file_name) override {
        note("sound " + std::string(file_name));
    }
    void pause(int milliseconds) override { note("pause " + std::to_string(milliseconds)); }
    double time_of_day() override { return now; }
    void seed_random(double seed) override { note("seed " + std::to_string(seed)); }
    float random_value() override {
        if (random_values.empty()) return static_cast<float>(generator() >> 8) * 0x1p-24F;
        const float value = random_values.front();
        random_values.pop_front();
        return value;
    }
    void beep() override { note("beep"); }
    void show_Grattis() override {
        note("show Grattis");
        at_Grattis();
    }
    void close_Grattis() override { note("close Grattis"); }
    void show_Startfrm() override {
        note("show Startfrm");
        at_Startfrm();
    }

   private:
    void note(std::string line) {
        if (keep_effects) effects.push_back(std::move(line));
    }
};

}  // namespace brusbo::test
