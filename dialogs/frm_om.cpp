#include "dialogs/frm_om.h"

#include <QPainter>

#include "engine/spela_ljud.h"
#include "platform/input_gate.h"

namespace brusbo {

namespace {

constexpr QSize client_area{188, 378};
constexpr QRgb yellow = 0xFFFFFF00;
constexpr QRgb white = 0xFFFFFFFF;

constexpr ElementLook imgLinje[] = {
    {"imgLinje(0)", {16, 236, 153, 8}, "Skiljelinje"},
    {"imgLinje(1)", {16, 290, 153, 8}, "Skiljelinje"},
    {"imgLinje(2)", {16, 164, 153, 8}, "Skiljelinje"},
    {"imgLinje(3)", {16, 126, 153, 8}, "Skiljelinje"},
    {"imgLinje(4)", {16, 88, 153, 8}, "Skiljelinje"},
};

struct LabelRow {
    ElementLook look;
    Label::Look label;
    const char* text;
};

constexpr LabelRow labels[] = {
    {{"Label10", {18, 104, 149, 19}}, {Font::bold, yellow, Qt::AlignHCenter}, "brusbo.example.org"},
    {{"Label9", {16, 142, 157, 19}}, {Font::bold, white}, "Programmet är FREEWARE"},
    {{"Label1", {18, 180, 99, 17}}, {Font::bold, yellow}, "Programmering:"},
    {{"Label4", {120, 180, 59, 13}}, {Font::regular, white}, "Teamet"},
    {{"Label2", {18, 196, 99, 17}}, {Font::bold, yellow}, "Grafik:"},
    {{"Label5", {120, 196, 59, 13}}, {Font::regular, white}, "Teamet"},
    {{"Label3", {18, 212, 99, 17}}, {Font::bold, yellow}, "Ljud:"},
    {{"Label6", {120, 212, 59, 13}}, {Font::regular, white}, "Teamet"},
    {{"Label7", {18, 252, 119, 15}}, {Font::bold, white}, "Copyright © 2026"},
    {{"Label8", {18, 266, 119, 15}}, {Font::bold, white}, "Brusboteamet"},
};

constexpr ElementLook Klar{"Klar", {56, 320, 71, 33}, "Klar"};
constexpr QRgb Klar_face = 0xFFFFE0C0;

}  // namespace

frmOm::frmOm()
    : Window("frmOm", "Om...",
             Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                 Qt::WindowCloseButtonHint | Qt::MSWindowsFixedSizeDialogHint,
             client_area) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    for (const ElementLook& look : imgLinje) new Image(this, look, picture("separator"));
    for (const LabelRow& row : labels) new Label(this, row.look, row.label, row.text);
    auto* klar = new CommandButton(this, Klar, "Klar", QColor(Klar_face), Font::large);
    connect(klar, &QAbstractButton::clicked, this,
            [this] { InputGate::instance().run([this] { Klar_Click(); }); });
    klar->setFocus();
    center_on(screen_area());
}

void frmOm::close_requested() { hide(); }

void frmOm::Klar_Click() {
    Spela_ljud(sound_click);
    hide();
}

void frmOm::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paint_picture(painter, picture("side-panel"), {0, 0});
}

}  // namespace brusbo
