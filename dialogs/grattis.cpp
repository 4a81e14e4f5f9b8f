#include "dialogs/grattis.h"

#include <QPainter>

#include "dialogs/startfrm.h"
#include "engine/engine.h"
#include "platform/elements.h"
#include "platform/ending.h"

namespace brusbo {

namespace {

constexpr QRgb frame_colour = 0xFF7A5C3A;

struct ColourPair {
    QRgb strong, light;
};

/// Index = player - 1.
constexpr ColourPair colours[] = {
    {0xFFFF0000, 0xFFFFC0C0},
    {0xFF0000FF, 0xFFC0C0FF},
    {0xFF00FF00, 0xFFC0FFC0},
    {0xFFFFFF00, 0xFFFFFFC0},
};

}  // namespace

/// The winner window's table, the buttons in tab order. All colours are the winner's.
struct Grattis::Elements {
    explicit Elements(QWidget* winner_window) : window(winner_window) {
        for (int i = 0; i < most_players; ++i) {
            new Image(window, {numbered("gimgGrattis", i), {0, 0, 148, 46}, "", false}, banner(i));
            const double top = 154 + 18 * i;
            const QString player = QString::number(i + 1);
            lbNamn.push_back(new Label(
                window, {numbered("lbNamn", i), {18, top, 179, 15}, "Namn på spelare " + player},
                {}));
            lbResultat.push_back(new Label(
                window,
                {numbered("lbResultat", i), {206, top, 81, 15}, "Resultat för spelare " + player},
                {}));
        }
    }

    static Picture banner(int index) { return nth(picture("banner-1"), index); }

    QWidget* window;
    Image& imgGrattis = *new Image(window, {"imgGrattis", {12, 12, 148, 46}, "Grattis!"});
    std::vector<Line*> linje = {
        new Line(window, {"linje(0)", {16, 68, 279, 1}, "Skiljelinje"}, Qt::red),
        new Line(window, {"linje(1)", {16, 110, 279, 1}, "Skiljelinje"}, Qt::red),
        new Line(window, {"linje(2)", {14, 242, 279, 1}, "Skiljelinje"}, Qt::red)};
    Label& labVisa_vinnare =
        *new Label(window, {"labVisa_vinnare", {18, 78, 273, 23}, "Vinnare"}, {Font::large_bold});
    Label& labResultat =
        *new Label(window, {"labResultat", {18, 120, 169, 13}, "Resultat"}, {}, "Resultat:");
    std::vector<Label*> lbNamn, lbResultat;
    CommandButton& butNytt_spel = *new CommandButton(
        window, {"butNytt_spel", {16, 256, 65, 25}, "Nytt spel"}, "Nytt spel", Qt::red);
    CommandButton& Avsluta =
        *new CommandButton(window, {"Avsluta", {224, 256, 65, 25}, "Avsluta"}, "Avsluta", Qt::red);
    CommandButton& butNytt_snabbt =
        *new CommandButton(window, {"butNytt_snabbt", {102, 256, 101, 25}, "Nytt spel (snabbt)"},
                           "Nytt spel (snabbt)", Qt::red);
};

Grattis::Grattis()
    : Window("Grattis", "Brusbo", Qt::Dialog | Qt::FramelessWindowHint, {309, 294}),
      elements_(std::make_unique<Elements>(this)) {
    on_click(
        elements_->butNytt_spel, [this] { butNytt_spel_Click(); });
    on_click(
        elements_->Avsluta, [this] { Avsluta_Click(); });
    on_click(elements_->butNytt_snabbt, [this] { butNytt_snabbt_Click(); });
    elements_->butNytt_spel.setFocus();
    Form_Load();
}

Grattis::~Grattis() = default;

void Grattis::Form_Load() {
    elements_->imgGrattis.set_picture(Elements::banner(Aktuell_spelare - 1));
    Färger();
    for (int i = 1; i <= Antal_spelare; ++i) {
        const auto row = static_cast<std::size_t>(i - 1);
        elements_->lbNamn[row]->set_text(QString::fromStdString(Spelare[i].Namn));
        elements_->lbResultat[row]->set_text(QString::number(Spelare[i].Antal_klara));
    }
    const QString name = QString::fromStdString(Spelare[Aktuell_spelare].Namn);
    const QString winner = name.isEmpty() ? Startfrm::default_name(Aktuell_spelare) : name;
    elements_->labVisa_vinnare.set_text(winner + QStringLiteral(" har vunnit!"));
}

void Grattis::Färger() {
    const QColor strong(colours[Aktuell_spelare - 1].strong);
    const QColor light(colours[Aktuell_spelare - 1].light);
    for (Line* line : elements_->linje) line->set_colour(strong);
    elements_->labVisa_vinnare.set_colour(strong);
    elements_->labResultat.set_colour(light);
    for (Label* label : elements_->lbNamn) label->set_colour(strong);
    for (Label* label : elements_->lbResultat) label->set_colour(light);
    elements_->butNytt_spel.set_face(light);
    elements_->butNytt_snabbt.set_face(light);
    elements_->Avsluta.set_face(light);
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
