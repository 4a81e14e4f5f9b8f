#include "dialogs/grattis.h"

#include <QPainter>

#include "dialogs/player_names.h"
#include "engine/engine.h"
#include "platform/ending.h"
#include "platform/input_gate.h"

namespace brusbo {

namespace {

constexpr QSize client_area{309, 294};
constexpr QRgb frame_colour = 0xFF7A5C3A;

struct ColourPair {
    QRgb strong, light;
};

constexpr ColourPair colours[] = {
    {0xFFFF0000, 0xFFFFC0C0},
    {0xFF0000FF, 0xFFC0C0FF},
    {0xFF00FF00, 0xFFC0FFC0},
    {0xFFFFFF00, 0xFFFFFFC0},
};

constexpr ElementLook imgGrattis{"imgGrattis", {12, 12, 148, 46}, "Grattis!"};
constexpr ElementLook gimgGrattis[] = {
    {"gimgGrattis(0)", {0, 0, 148, 46}, "", false},
    {"gimgGrattis(1)", {0, 0, 148, 46}, "", false},
    {"gimgGrattis(2)", {0, 0, 148, 46}, "", false},
    {"gimgGrattis(3)", {0, 0, 148, 46}, "", false},
};
constexpr ElementLook linje[] = {
    {"linje(0)", {16, 68, 279, 1}, "Skiljelinje"},
    {"linje(1)", {16, 110, 279, 1}, "Skiljelinje"},
    {"linje(2)", {14, 242, 279, 1}, "Skiljelinje"},
};
constexpr ElementLook labVisa_vinnare{"labVisa_vinnare", {18, 78, 273, 23}, "Vinnare"};
constexpr Label::Look labVisa_vinnare_look{Font::large_bold};
constexpr ElementLook labResultat{"labResultat", {18, 120, 169, 13}, "Resultat"};

struct ResultRow {
    ElementLook lbNamn, lbResultat;
};

constexpr ResultRow result_rows[] = {
    {{"lbNamn(0)", {18, 154, 179, 15}, "Namn på spelare 1"},
     {"lbResultat(0)", {206, 154, 81, 15}, "Resultat för spelare 1"}},
    {{"lbNamn(1)", {18, 172, 179, 15}, "Namn på spelare 2"},
     {"lbResultat(1)", {206, 172, 81, 15}, "Resultat för spelare 2"}},
    {{"lbNamn(2)", {18, 190, 179, 15}, "Namn på spelare 3"},
     {"lbResultat(2)", {206, 190, 81, 15}, "Resultat för spelare 3"}},
    {{"lbNamn(3)", {18, 208, 179, 15}, "Namn på spelare 4"},
     {"lbResultat(3)", {206, 208, 81, 15}, "Resultat för spelare 4"}},
};

constexpr ElementLook butNytt_spel{"butNytt_spel", {16, 256, 65, 25}, "Nytt spel"};
constexpr ElementLook butNytt_snabbt{"butNytt_snabbt", {102, 256, 101, 25}, "Nytt spel (snabbt)"};
constexpr ElementLook Avsluta{"Avsluta", {224, 256, 65, 25}, "Avsluta"};

}  // namespace

Grattis::Grattis()
    : Window("Grattis", "Brusbo", Qt::Dialog | Qt::FramelessWindowHint, client_area) {
    make_elements();
    Form_Load();
}

void Grattis::make_elements() {
    const auto run = [](CommandButton* button, auto handler) {
        connect(button, &QAbstractButton::clicked, button,
                [handler] { InputGate::instance().run(handler); });
    };
    const QColor layout_face(colours[0].light);

    for (int index = 0; index < most_players; ++index)
        new Image(this, gimgGrattis[index], nth(picture("banner-1"), index));
    imgGrattis_ = new Image(this, imgGrattis);
    for (const ElementLook& look : linje)
        linje_.push_back(new Line(this, look, QColor(colours[0].strong)));
    labVisa_vinnare_ = new Label(this, labVisa_vinnare, labVisa_vinnare_look);
    labResultat_ = new Label(this, labResultat, {}, "Resultat:");
    for (const ResultRow& row : result_rows) {
        lbNamn_.push_back(new Label(this, row.lbNamn, {}));
        lbResultat_.push_back(new Label(this, row.lbResultat, {}));
    }
    // In tab order.
    butNytt_spel_ = new CommandButton(this, butNytt_spel, "Nytt spel", layout_face);
    run(butNytt_spel_, [this] { butNytt_spel_Click(); });
    Avsluta_ = new CommandButton(this, Avsluta, "Avsluta", layout_face);
    run(Avsluta_, [this] { Avsluta_Click(); });
    butNytt_snabbt_ = new CommandButton(this, butNytt_snabbt, "Nytt spel (snabbt)", layout_face);
    run(butNytt_snabbt_, [this] { butNytt_snabbt_Click(); });
    butNytt_spel_->setFocus();
}

void Grattis::Form_Load() {
    imgGrattis_->set_picture(nth(picture("banner-1"), Aktuell_spelare - 1));
    Färger();
    for (int i = 1; i <= Antal_spelare; ++i) {
        const auto row = static_cast<std::size_t>(i - 1);
        lbNamn_[row]->set_text(QString::fromStdString(Spelare[i].Namn));
        lbResultat_[row]->set_text(QString::number(Spelare[i].Antal_klara));
    }
    const QString name = QString::fromStdString(Spelare[Aktuell_spelare].Namn);
    const QString winner =
        name.isEmpty() ? QString::fromUtf8(default_names[Aktuell_spelare - 1]) : name;
    labVisa_vinnare_->set_text(winner + QStringLiteral(" har vunnit!"));
}

void Grattis::Färger() {
    const QColor strong(colours[Aktuell_spelare - 1].strong);
    const QColor light(colours[Aktuell_spelare - 1].light);
    for (Line* line : linje_) line->set_colour(strong);
    labVisa_vinnare_->set_colour(strong);
    labResultat_->set_colour(light);
    for (std::size_t i = 0; i < lbNamn_.size(); ++i) {
        lbNamn_[i]->set_colour(strong);
        lbResultat_[i]->set_colour(light);
    }
    butNytt_spel_->set_face(light);
    butNytt_snabbt_->set_face(light);
    Avsluta_->set_face(light);
}

void Grattis::butNytt_spel_Click() {
    Nytt_spel();
    hide();
}

void Grattis::butNytt_snabbt_Click() {
    Grattis_öppen = true;
    Nytt_snabbt();
}

void Grattis::Avsluta_Click() { end_program(); }

// The thin frame is our own: no window manager draws one without a caption for the asking.
void Grattis::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(frame_colour));
    painter.fillRect(rect().adjusted(1, 1, -1, -1), Qt::black);
}

}  // namespace brusbo
