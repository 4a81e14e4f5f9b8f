#pragma once

#include "platform/elements.h"
#include "platform/layout.h"

// Places, sizes, texts and colours of the main window's elements. Places are device-independent
// pixels from the top-left corner of the element's container.
namespace brusbo::main_layout {

inline constexpr QSize client_area{570, 416};

inline constexpr ElementLook Namnlist{"Namnlist", {2, 2, 567, 32}, "Namnlist"};
inline constexpr ElementLook Picture2{"Picture2", {2, 36, 189, 378}, "Sidopanel"};
inline constexpr ElementLook Picture1{"Picture1", {190, 36, 378, 378}, "Spelplan"};

// Title bar.
inline constexpr ElementLook mnuArkiv{"mnuArkiv", {12, 6, 41, 20}, "Arkiv, meny"};
inline constexpr ElementLook mnuOm{"mnuOm", {66, 8, 39, 20}, "Om Brusbo"};
inline constexpr ElementLook butMini{"butMini", {524, 6, 13, 20}, "Minimera"};
inline constexpr ElementLook butAvsluta{"butAvsluta", {544, 8, 16, 19}, "Avsluta"};
inline constexpr QPoint menu_corner{14, 28};  ///< of the window; the lower left of `mnuArkiv`

inline constexpr ElementLook Label1{"Label1", {118, 10, 225, 15}, "Brusbos webbadress"};
inline constexpr Label::Look Label1_look{Font::bold, 0xFF000080};
inline constexpr char Label1_text[] = "https://brusbo.example.org";

inline constexpr ElementLook labPjäser_klara{
    "labPjäser_klara", {344, 10, 169, 17}, "Antal pjäser klara", false};
inline constexpr Label::Look labPjäser_klara_look{Font::bold, 0xFFFFFFFF, Qt::AlignRight};
inline constexpr char labPjäser_klara_text[] = "Antal pjäser klara: 0";

// Side panel.
inline constexpr ElementLook imgLinje[] = {
    {"imgLinje(0)", {18, 84, 153, 8}, "Skiljelinje"},
    {"imgLinje(1)", {18, 106, 153, 8}, "Skiljelinje"},
    {"imgLinje(2)", {18, 190, 153, 8}, "Skiljelinje"},
    {"imgLinje(3)", {18, 306, 153, 8}, "Skiljelinje"},
};
inline constexpr ElementLook imgVisa_tur{"imgVisa_tur", {142, 86, 26, 26}, "Spelarens färg"};
inline constexpr ElementLook labVisa_tur{"labVisa_tur", {26, 90, 149, 19}, "Vems tur det är"};
/// The sentence ends where the picture of the turn begins.
inline constexpr Label::Look labVisa_tur_look{Font::large_bold, 0xFF000000, Qt::AlignLeft, false,
                                              114};
inline constexpr ElementLook Tärning{"Tärning", {30, 128, 50, 50}, "Tärning, visar 1"};
inline constexpr ElementLook labMeddelande{"labMeddelande", {28, 204, 131, 101}, "Meddelande"};
inline constexpr Label::Look labMeddelande_look{Font::regular, 0xFF000000, Qt::AlignLeft, true};
inline constexpr char labMeddelande_text[] = "Slå genom att klicka på tärnningen.";

inline constexpr QRgb nest_button_face = 0xFFFFFF00;
inline constexpr ElementLook butEn_pjäs{
    "butEn_pjäs", {22, 324, 143, 17}, "Flytta ut 1 pjäs", false};
inline constexpr char butEn_pjäs_text[] = "Flytta ut 1 pjäs";
inline constexpr ElementLook butTvå_pjäser{
    "butTvå_pjäser", {22, 344, 143, 17}, "Flytta ut 2 pjäser", false};
inline constexpr char butTvå_pjäser_text[] = "Flytta ut 2 pjäser";

inline constexpr QRgb button_face = 0xFFFFE0C0;
inline constexpr ElementLook butNästa{"butNästa", {38, 328, 113, 27}, "Nästa spelare", false};
inline constexpr char butNästa_text[] = "Nästa spelare";

// Board.
inline constexpr ElementLook shpHålbak{
    "shpHålbak", {6, 8, 127, 123}, "Markering av vems tur det är"};
inline constexpr QRgb shpHålbak_colour = 0xFF800000;

inline constexpr ElementLook Pjäs[] = {
    {"Pjäs(0)", {36, 34, 26, 26}, "Röd pjäs 1"},
    {"Pjäs(1)", {78, 34, 26, 26}, "Röd pjäs 2"},
    {"Pjäs(2)", {36, 78, 26, 26}, "Röd pjäs 3"},
    {"Pjäs(3)", {78, 78, 26, 26}, "Röd pjäs 4"},
    {"Pjäs(4)", {274, 34, 26, 26}, "Blå pjäs 1"},
    {"Pjäs(5)", {316, 34, 26, 26}, "Blå pjäs 2"},
    {"Pjäs(6)", {274, 80, 26, 26}, "Blå pjäs 3"},
    {"Pjäs(7)", {316, 80, 26, 26}, "Blå pjäs 4"},
    {"Pjäs(8)", {274, 272, 26, 26}, "Grön pjäs 1"},
    {"Pjäs(9)", {316, 272, 26, 26}, "Grön pjäs 2"},
    {"Pjäs(10)", {274, 316, 26, 26}, "Grön pjäs 3"},
    {"Pjäs(11)", {316, 316, 26, 26}, "Grön pjäs 4"},
    {"Pjäs(12)", {36, 274, 26, 26}, "Gul pjäs 1"},
    {"Pjäs(13)", {78, 274, 26, 26}, "Gul pjäs 2"},
    {"Pjäs(14)", {36, 316, 26, 26}, "Gul pjäs 3"},
    {"Pjäs(15)", {78, 316, 26, 26}, "Gul pjäs 4"},
};

inline constexpr ElementLook Plus[] = {
    {"Plus(0)", {0, 0, 9, 9}, "Flera pjäser", false},
    {"Plus(1)", {8, 0, 9, 9}, "Flera pjäser", false},
    {"Plus(2)", {16, 0, 9, 9}, "Flera pjäser", false},
    {"Plus(3)", {24, 0, 9, 9}, "Flera pjäser", false},
    {"Plus(4)", {0, 10, 9, 9}, "Flera pjäser", false},
    {"Plus(5)", {8, 10, 9, 9}, "Flera pjäser", false},
    {"Plus(6)", {16, 10, 9, 9}, "Flera pjäser", false},
    {"Plus(7)", {24, 10, 9, 9}, "Flera pjäser", false},
    {"Plus(8)", {0, 20, 9, 9}, "Flera pjäser", false},
    {"Plus(9)", {8, 20, 9, 9}, "Flera pjäser", false},
    {"Plus(10)", {16, 20, 9, 9}, "Flera pjäser", false},
    {"Plus(11)", {24, 20, 9, 9}, "Flera pjäser", false},
    {"Plus(12)", {0, 30, 9, 9}, "Flera pjäser", false},
    {"Plus(13)", {8, 30, 9, 9}, "Flera pjäser", false},
    {"Plus(14)", {16, 30, 9, 9}, "Flera pjäser", false},
    {"Plus(15)", {24, 30, 9, 9}, "Flera pjäser", false},
};

}  // namespace brusbo::main_layout
