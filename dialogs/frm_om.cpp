#include "dialogs/frm_om.h"

#include <QPainter>

#include "dialogs/startfrm.h"
#include "engine/spela_ljud.h"

namespace brusbo {

namespace {

constexpr Label::Look heading{Font::bold, 0xFFFFFF00};
constexpr Label::Look statement{Font::bold, 0xFFFFFFFF};
constexpr Label::Look credit{Font::regular, 0xFFFFFFFF};

}  // namespace

/// The about window's table.
struct frmOm::Elements {
    QWidget* window;

    std::vector<Image*> imgLinje =
        separators(window, {{16, 236}, {16, 290}, {16, 164}, {16, 126}, {16, 88}});
    Label& Label10 = *new Label(window, {"Label10", {18, 104, 149, 19}},
                                {Font::bold, 0xFFFFFF00, Qt::AlignHCenter}, "brusbo.example.org");
    Label& Label9 =
        *new Label(window, {"Label9", {16, 142, 157, 19}}, statement, "Programmet är FREEWARE");
    Label& Label1 = *new Label(window, {"Label1", {18, 180, 99, 17}}, heading, "Programmering:");
    Label& Label4 = *new Label(window, {"Label4", {120, 180, 59, 13}}, credit, "Teamet");
    Label& Label2 = *new Label(window, {"Label2", {18, 196, 99, 17}}, heading, "Grafik:");
    Label& Label5 = *new Label(window, {"Label5", {120, 196, 59, 13}}, credit, "Teamet");
    Label& Label3 = *new Label(window, {"Label3", {18, 212, 99, 17}}, heading, "Ljud:");
    Label& Label6 = *new Label(window, {"Label6", {120, 212, 59, 13}}, credit, "Teamet");
    Label& Label7 =
        *new Label(window, {"Label7", {18, 252, 119, 15}}, statement, "Copyright © 2026");
    Label& Label8 = *new Label(window, {"Label8", {18, 266, 119, 15}}, statement, "Brusboteamet");
    CommandButton& Klar = *new CommandButton(window, {"Klar", {56, 320, 71, 33}, "Klar"}, "Klar",
                                             0xFFFFE0C0, Font::large);
};

frmOm::frmOm()
    : Window("frmOm", "Om...",
             Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                 Qt::WindowCloseButtonHint | Qt::MSWindowsFixedSizeDialogHint,
             {188, 378}),
      background_(Startfrm::background) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    const Elements elements{this};
    on_click(elements.Klar, [this] { Klar_Click(); });
    elements.Klar.setFocus();
    center_on(screen_area());
}

void frmOm::Form_Activate() {
    background_ = Startfrm::background;
    update();
}

void frmOm::close_requested() { hide(); }

void frmOm::Klar_Click() {
    Spela_ljud(sound_click);
    hide();
}

void frmOm::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paint_picture(painter, background_, {0, 0});
}

}  // namespace brusbo
