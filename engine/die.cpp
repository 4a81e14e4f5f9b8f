#include "engine/die.h"

#include <algorithm>
#include <cmath>

#include "engine/spela_ljud.h"
#include "engine/state.h"
#include "engine/turn.h"
#include "engine/world.h"

namespace brusbo {

namespace {

constexpr std::string_view nothing_in_nest =
    "Du kan inte flytta någon pjäs från boet för du har inga där. Flytta istället en pjäs på "
    "spelplanen genom att klicka på den. ";

/// A random whole number 0..count-1. The product is taken in double precision, where it cannot
/// round up to `count`; a value outside [0, 1) counts as the nearest inside.
int random_below(int count) {
    const double value = services().random_value();
    return std::clamp(static_cast<int>(std::floor(value * count)), 0, count - 1);
}

void offer_one_piece() {
    butEn_pjäs_visible = true;
    screen().set_visible(Element::butEn_pjäs, true);
}

void tell_throw(std::string_view rest) { Med(joined({"Du slog ", digit(Senaste_slag), rest})); }

}  // namespace

void Tärning_Click() {
    if (!Tärning_enabled) return;
    const InvariantGuard guard;

    Senaste_slag = Slå_tärning();
    screen().set_tag(Element::Tärning, digit(Senaste_slag));
    Tärning_enabled = false;
    screen().set_enabled(Element::Tärning, false);
    Har_flyttat = false;
    Efter_slag();
}

std::int16_t Slå_tärning() {
    constexpr int steps = 6;
    constexpr int leftmost = 450;  // twips
    constexpr int range = 1230;

    services().seed_random(services().time_of_day());
    Spela_ljud(sound_throw);
    std::uint8_t Slag = 1;
    for (int step = 0; step < steps; ++step) {
        screen().set_left(Element::Tärning, random_below(range) + leftmost);
        Slag = static_cast<std::uint8_t>(random_below(6) + 1);
        Visa_tärning(Slag);
        services().pause(pause_between_pictures);
    }
    screen().set_visible(Element::labPjäser_klara, true);
    return Slag;
}

void Visa_tärning(const std::uint8_t& Slag) {
    screen().set_picture(Element::Tärning, {Store::T, static_cast<std::int16_t>(Slag - 1)});
}

void Efter_slag() {
    const int in_nest = Spelare[Aktuell_spelare].Antal_i_boet;
    const int finished = Spelare[Aktuell_spelare].Antal_klara;

    if (Senaste_slag == 6 && in_nest >= 2) {
        Med("Du slog 6, du har nu möjlighet att välja mellan att flytta ut 1 eller 2 pjäser på "
            "spelplanen. Du kan också flytta en pjäs som redan står på spelplanen genom att klicka "
            "på den.");
        Val12(true);
    } else if (Senaste_slag == 6 && in_nest == 1) {
        Med("Du slog 6, men hara bara en pjäs i boet. Du kan flytta ut den eller flytta någon "
            "annan pjäs 6 steg.");
        offer_one_piece();
    } else if (Senaste_slag == 1 && in_nest >= 1) {
        Med("Du slog 1, du kan nu antingen flytta ut en spelare från boet. Eller flytta en "
            "spelare som redan står på spelplanen.");
        offer_one_piece();
    } else if (Senaste_slag == 6 || Senaste_slag == 1) {
        Med(nothing_in_nest);
    } else if (in_nest == pieces_each) {
        tell_throw(
            ". Du kan inte flytta någon pjäs för alla står i boet. För att flytta ut någon på "
            "spelplanen måste du slå 1 eller 6.");
        Klar();
    } else if (finished + in_nest == pieces_each) {
        tell_throw(
            ". Du kan inte flytta någon pjäs. Det är bara att låta nästa spelare fortsätta.");
        Klar();
    } else {
        tell_throw(
            ". Det enda du kan göra nu är att flytta en av de pjäser du har på spelplanen genom "
            "att klicka på den.");
    }
}

}  // namespace brusbo
