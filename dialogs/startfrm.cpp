#include "dialogs/startfrm.h"

#include <QPainter>
#include <utility>

#include "dialogs/player_names.h"
#include "engine/engine.h"
#include "platform/ending.h"
#include "platform/input_gate.h"

namespace brusbo {

namespace {

constexpr QSize client_area{188, 305};

struct SlotRow {
    ElementLook AntSpelare;
    QRgb face;
    ElementLook Namn;
};

constexpr SlotRow slot_rows[] = {
    {{"AntSpelare(0)", {28, 108, 15, 17}, "En spelare"},
     0xFFFF0000,
     {"Namn(0)", {52.5, 104, 105, 19}, "Namn på spelare 1"}},
    {{"AntSpelare(1)", {28.5, 128, 15, 17}, "Två spelare"},
     0xFF0000FF,
     {"Namn(1)", {52.5, 126, 105, 19}, "Namn på spelare 2"}},
    {{"AntSpelare(2)", {28.5, 150, 15, 17}, "Tre spelare"},
     0xFF00FF00,
     {"Namn(2)", {52.5, 148, 105, 19}, "Namn på spelare 3"}},
    {{"AntSpelare(3)", {28.5, 172, 15, 17}, "Fyra spelare"},
     0xFFFFFF00,
     {"Namn(3)", {52.5, 170, 105, 19}, "Namn på spelare 4"}},
};

constexpr ElementLook Sound{"Sound", {54, 216, 13, 13}, "Ljud på/av"};
constexpr ElementLook Label3{"Label3", {72, 216, 83, 15}, "Ljud på/av"};
constexpr Label::Look Label3_look{Font::bold, 0xFFFFFF00};
constexpr ElementLook Starta{"Starta", {60, 258, 71, 33}, "Starta"};
constexpr QRgb Starta_face = 0xFFFFE0C0;

constexpr ElementLook imgLinje[] = {
    {"imgLinje(0)", {18, 202, 153, 8}, "Skiljelinje"},
    {"imgLinje(1)", {18, 236, 153, 8}, "Skiljelinje"},
    {"imgLinje(2)", {18, 84, 153, 8}, "Skiljelinje"},
};

}  // namespace

Startfrm::Startfrm(std::function<void()> show_MFrm, std::function<void()> painted)
    : Window("Startfrm", "Brusbo",
             Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                 Qt::WindowCloseButtonHint | Qt::MSWindowsFixedSizeDialogHint,
             client_area),
      show_MFrm_(std::move(show_MFrm)),
      painted_(std::move(painted)) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    make_elements();
    connect_elements();
    center_on(screen_area());
}

void Startfrm::make_elements() {
    for (const ElementLook& look : imgLinje) new Image(this, look, picture("separator"));
    for (const SlotRow& row : slot_rows)
        AntSpelare_.push_back(new OptionButton(this, row.AntSpelare, QColor(row.face)));
    for (std::size_t slot = 0; slot < std::size(slot_rows); ++slot)
        Namn_.push_back(new NameBox(this, slot_rows[slot].Namn, default_names[slot]));
    Starta_ = new CommandButton(this, Starta, "Starta", QColor(Starta_face), Font::large);
    Sound_ = new CheckBox(this, Sound);
    new Label(this, Label3, Label3_look, "Ljud på/av");

    AntSpelare_[0]->setEnabled(false);
    AntSpelare_[1]->setChecked(true);
    Namn_[2]->setEnabled(false);
    Namn_[3]->setEnabled(false);
    // The elements were made in tab order; the chosen option stands first in it.
    AntSpelare_[1]->setFocus();
}

void Startfrm::connect_elements() {
    for (int index = 0; index < most_players; ++index) {
        const auto at = static_cast<std::size_t>(index);
        connect(
            AntSpelare_[at], &QAbstractButton::clicked, this,
            [this, index] {
                InputGate::instance().run([this, index] { AntSpelare_Click(index); });
            });
        connect(Namn_[at], &QLineEdit::textChanged, this, [this, index] { Namn_Change(index); });
    }
    connect(
        Sound_, &QAbstractButton::toggled, this,
        [this] { InputGate::instance().run([this] { Sound_Click(); }); });
    connect(Starta_, &QAbstractButton::clicked, this,
            [this] { InputGate::instance().run([this] { Starta_Click(); }); });
}

void Startfrm::Form_Load() {
    Antal_spelare = 2;
    Ljud_på = true;
}

void Startfrm::Form_Activate() {
    Nollställ_spelare();
    for (int index = 0; index < most_players; ++index) Namn_Change(index);
}

void Startfrm::close_requested() { end_program(); }

void Startfrm::AntSpelare_Click(int Index) {
    Spela_ljud(sound_step);
    Antal_spelare = static_cast<std::int16_t>(Index + 1);
    for (int index = 0; index < most_players; ++index)
        Namn_[static_cast<std::size_t>(index)]->setEnabled(index <= Index);
}

void Startfrm::Namn_Change(int Index) {
    Spelare[Index + 1].Namn = Namn_[static_cast<std::size_t>(Index)]->text().toStdString();
}

void Startfrm::Sound_Click() {
    Spela_ljud(sound_click);
    Ljud_på = Sound_->isChecked();
}

void Startfrm::Starta_Click() {
    Spela_ljud(sound_click);
    hide();
    show_MFrm_();
}

void Startfrm::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paint_picture(painter, picture("side-panel"), {0, 0});
    if (painted_) std::exchange(painted_, {})();
}

}  // namespace brusbo
