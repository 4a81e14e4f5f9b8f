#include "engine/turn.h"

#include "engine/markings.h"
#include "engine/pieces.h"
#include "engine/spela_ljud.h"
#include "engine/state.h"
#include "engine/world.h"

namespace brusbo {

namespace {

/// Whether the upper-case form of the last character is S; the old long s is one of the three.
bool ends_in_s(std::string_view name) {
    return name.ends_with('s') || name.ends_with('S') || name.ends_with("ſ");
}

}  // namespace

void Med(std::string_view Meddelande) { screen().set_text(Element::labMeddelande, Meddelande); }

void Val12(const bool& Index) {
    butEn_pjäs_visible = Index;
    screen().set_visible(Element::butEn_pjäs, Index);
    butTvå_pjäser_visible = Index;
    screen().set_visible(Element::butTvå_pjäser, Index);
}

void Klar() {
    Har_flyttat = true;
    butNästa_visible = true;
    screen().set_visible(Element::butNästa, true);
    screen().set_focus(Element::butNästa);
}

void Tärning_6() {
    Har_flyttat = true;
    Tärning_enabled = true;
    screen().set_enabled(Element::Tärning, true);
    butNästa_visible = false;
    screen().set_visible(Element::butNästa, false);
    Med("Eftersom du slog 6 får du slå igen!");
    Val12(false);
}

void end_move() {
    if (Senaste_slag == 6) {
        Tärning_6();
    } else {
        Klar();
        Val12(false);
    }
}

void butNästa_Click() {
    if (!butNästa_visible) return;
    const InvariantGuard guard;

    Spela_ljud(sound_click);
    Tärning_enabled = true;
    screen().set_enabled(Element::Tärning, true);
    Aktuell_spelare =
        Aktuell_spelare < Antal_spelare ? static_cast<std::int16_t>(Aktuell_spelare + 1) : 1;
    butNästa_visible = false;
    screen().set_visible(Element::butNästa, false);
    Med(ask_for_throw);
    Visa_tur();
    Move_BackShape();
    show_finished_count();
}

void Visa_tur() {
    const std::string_view name = Spelare[Aktuell_spelare].Namn;
    screen().set_text(Element::labVisa_tur, joined({name, ends_in_s(name) ? " tur!" : "s tur!"}));
    screen().set_picture(Element::imgVisa_tur, piece_picture(Aktuell_spelare));
}

void show_finished_count() {
    screen().set_text(
        Element::labPjäser_klara,
        joined({"Antal pjäser klara: ", digit(Spelare[Aktuell_spelare].Antal_klara)}));
}

}  // namespace brusbo
