#pragma once

#include <map>
#include <vector>

#include "engine/screen.h"
#include "mainwindow/picture_stores.h"
#include "mainwindow/title_bar.h"
#include "platform/elements.h"

namespace brusbo {

/// Where the pieces lie before anything has moved them, pixels of the board. In the nests of later
/// games they lie a little closer together.
inline constexpr LayoutPlace layout_places[] = {
    {36, 34},   {78, 34},   {36, 78},   {78, 78},    // red
    {274, 34},  {316, 34},  {274, 80},  {316, 80},   // blue
    {274, 272}, {316, 272}, {274, 316}, {316, 316},  // green
    {36, 274},  {78, 274},  {36, 316},  {78, 316},   // yellow
};

/// The main window's table: its elements with their places in their containers, their looks and
/// their texts. A later element of a container lies above an earlier one. What the rules write to
/// is added under the name that they call it by.
struct MFrmElements {
    explicit MFrmElements(QWidget* main_window) : window(main_window) {}

    QWidget* window;
    std::map<Element, std::vector<QWidget*>> by_name;

    // Title bar.
    TitleBar& Namnlist =
        *new TitleBar(window, {"Namnlist", {2, 2, 567, 32}, "Namnlist"}, picture("title-bar"));
    Label& Label1 = *new Label(&Namnlist, {"Label1", {118, 10, 225, 15}, "Brusbos webbadress"},
                               {Font::bold, 0xFF000080}, "https://brusbo.example.org");
    Label& labPjäser_klara =
        add<Label>(Element::labPjäser_klara, Namnlist,
                   {"labPjäser_klara", {344, 10, 169, 17}, "Antal pjäser klara", false},
                   Label::Look{Font::bold, 0xFFFFFFFF, Qt::AlignRight}, "Antal pjäser klara: 0");
    PictureButton& mnuArkiv = add<PictureButton>(Element::mnuArkiv, Namnlist,
                                                 {"mnuArkiv", {12, 6, 41, 20}, "Arkiv, meny"});
    PictureButton& mnuOm =
        add<PictureButton>(Element::mnuOm, Namnlist, {"mnuOm", {66, 8, 39, 20}, "Om Brusbo"});
    PictureButton& butMini =
        add<PictureButton>(Element::butMini, Namnlist, {"butMini", {524, 6, 13, 20}, "Minimera"});
    PictureButton& butAvsluta = add<PictureButton>(Element::butAvsluta, Namnlist,
                                                   {"butAvsluta", {544, 8, 16, 19}, "Avsluta"});

    // Side panel.
    Image& Picture2 =
        *new Image(window, {"Picture2", {2, 36, 189, 378}, "Sidopanel"}, picture("side-panel"));
    std::vector<Image*> imgLinje =
        separators(&Picture2, {{18, 84}, {18, 106}, {18, 190}, {18, 306}});
    /// The sentence ends where the picture of the turn begins.
    Label& labVisa_tur = add<Label>(
        Element::labVisa_tur, Picture2, {"labVisa_tur", {26, 90, 149, 19}, "Vems tur det är"},
        Label::Look{Font::large_bold, 0xFF000000, Qt::AlignLeft, false, 114});
    Image& imgVisa_tur = add<Image>(Element::imgVisa_tur, Picture2,
                                    {"imgVisa_tur", {142, 86, 26, 26}, "Spelarens färg"});
    PictureButton& Tärning =
        add<PictureButton>(Element::Tärning, Picture2,
                           {"Tärning", {30, 128, 50, 50}, "Tärning, visar 1"}, picture("die-1"));
    Label& labMeddelande = add<Label>(Element::labMeddelande, Picture2,
                                      {"labMeddelande", {28, 204, 131, 101}, "Meddelande"},
                                      Label::Look{Font::regular, 0xFF000000, Qt::AlignLeft, true},
                                      "Slå genom att klicka på tärnningen.");
    LabelButton& butEn_pjäs =
        add<LabelButton>(Element::butEn_pjäs, Picture2,
                         {"butEn_pjäs", {22, 324, 143, 17}, "Flytta ut 1 pjäs", false},
                         "Flytta ut 1 pjäs", 0xFFFFFF00);
    LabelButton& butTvå_pjäser =
        add<LabelButton>(Element::butTvå_pjäser, Picture2,
                         {"butTvå_pjäser", {22, 344, 143, 17}, "Flytta ut 2 pjäser", false},
                         "Flytta ut 2 pjäser", 0xFFFFFF00);
    CommandButton& butNästa = add<CommandButton>(
        Element::butNästa, Picture2, {"butNästa", {38, 328, 113, 27}, "Nästa spelare", false},
        "Nästa spelare", 0xFFFFE0C0);

    // Board. Where pieces share a square, the one with the highest index takes the clicks.
    Image& Picture1 =
        *new Image(window, {"Picture1", {190, 36, 378, 378}, "Spelplan"}, picture("board"));
    PictureStores& Grafik = *new PictureStores(&Picture1);
    Circle& shpHålbak =
        add<Circle>(Element::shpHålbak, Picture1,
                    {"shpHålbak", {6, 8, 127, 123}, "Markering av vems tur det är"}, 0xFF800000);
    std::vector<PictureButton*> Pjäs = make_pieces();
    std::vector<Image*> Plus = make_markers();

   private:
    template <class Made, class... Rest>
    Made& add(Element element, QWidget& parent, const ElementLook& look, Rest... rest) {
        auto* const made = new Made(&parent, look, rest...);
        by_name[element].push_back(made);
        return *made;
    }
    std::vector<PictureButton*> make_pieces();
    std::vector<Image*> make_markers();
};

}  // namespace brusbo
