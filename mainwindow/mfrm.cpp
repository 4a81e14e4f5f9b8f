#include "mainwindow/mfrm.h"

#include <QKeyEvent>
#include <QPainter>

#include "engine/engine.h"
#include "mainwindow/layout.h"
#include "mainwindow/picture_stores.h"
#include "mainwindow/title_bar.h"
#include "platform/input_gate.h"

namespace brusbo {

namespace {

/// Runs a handler for each click on a button, one action at a time.
void on_click(QAbstractButton* button, std::function<void()> handler) {
    QObject::connect(
        button, &QAbstractButton::clicked, button,
        [handler = std::move(handler)] { InputGate::instance().run(handler); });
}

}  // namespace

MFrm::MFrm(OtherWindows& other_windows)
    : Window("MFrm", "Brusbo",
             Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::MSWindowsFixedSizeDialogHint,
             main_layout::client_area),
      other_windows_(other_windows),
      aaa_(this) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    make_title_bar();
    make_side_panel();
    make_board();
    picture_buttons_ = std::make_unique<PictureButtons>(*mnuArkiv, *mnuOm, *butMini, *butAvsluta);
    connect_clicks();
    center_on(screen_area());
}

MFrm::~MFrm() = default;

void MFrm::make_title_bar() {
    using namespace main_layout;
    auto* bar = new TitleBar(this);
    new Label(bar, Label1, Label1_look, Label1_text);
    labPjäser_klara =
        new Label(bar, main_layout::labPjäser_klara, labPjäser_klara_look, labPjäser_klara_text);
    mnuArkiv = new PictureButton(bar, main_layout::mnuArkiv);
    mnuOm = new PictureButton(bar, main_layout::mnuOm);
    butMini = new PictureButton(bar, main_layout::butMini);
    butMini->setToolTip(QStringLiteral("Minimera"));
    butAvsluta = new PictureButton(bar, main_layout::butAvsluta);
    butAvsluta->setToolTip(QStringLiteral("Avsluta"));
}

void MFrm::make_side_panel() {
    using namespace main_layout;
    auto* panel = new Image(this, Picture2, picture("side-panel"));
    for (const ElementLook& look : imgLinje) new Image(panel, look, picture("separator"));
    labVisa_tur = new Label(panel, main_layout::labVisa_tur, labVisa_tur_look);
    imgVisa_tur = new Image(panel, main_layout::imgVisa_tur);
    Tärning = new PictureButton(panel, main_layout::Tärning, picture("die-1"));
    labMeddelande =
        new Label(panel, main_layout::labMeddelande, labMeddelande_look, labMeddelande_text);
    butEn_pjäs =
        new LabelButton(panel, main_layout::butEn_pjäs, butEn_pjäs_text, QColor(nest_button_face));
    butTvå_pjäser = new LabelButton(panel, main_layout::butTvå_pjäser, butTvå_pjäser_text,
                                    QColor(nest_button_face));
    butNästa = new CommandButton(panel, main_layout::butNästa, butNästa_text, QColor(button_face));
}

// Later children of the board lie above earlier ones: where pieces share a square, the one with
// the highest index is on top and takes the clicks.
void MFrm::make_board() {
    auto* board = new Image(this, main_layout::Picture1, picture("board"));
    new PictureStores(board);
    shpHålbak = new Circle(board, main_layout::shpHålbak, QColor(main_layout::shpHålbak_colour));
    for (const ElementLook& look : main_layout::Pjäs)
        Pjäs.push_back(new PictureButton(board, look));
    for (const ElementLook& look : main_layout::Plus) {
        Plus.push_back(new Image(board, look));
        Plus.back()->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
}

void MFrm::connect_clicks() {
    on_click(Tärning, Tärning_Click);
    on_click(butEn_pjäs, butEn_pjäs_Click);
    on_click(butTvå_pjäser, butTvå_pjäser_Click);
    on_click(butNästa, butNästa_Click);
    for (std::int16_t b = 0; b < piece_count; ++b)
        on_click(
            Pjäs[static_cast<std::size_t>(b)], [b] { Pjäs_Click(b); });
    on_click(
        mnuArkiv, [this] { mnuArkiv_Click(); });
    on_click(
        mnuOm, [this] { mnuOm_Click(); });
    on_click(
        butMini, [this] { butMini_Click(); });
    on_click(butAvsluta, [this] { butAvsluta_Click(); });
}

void MFrm::Form_Load() { Ladda_Positioner(); }

void MFrm::Form_Activate() { Visa_tur(); }

void MFrm::close_requested() { butAvsluta_Click(); }

void MFrm::keyPressEvent(QKeyEvent* event) {
    if (is_new_game_key(*event))
        InputGate::instance().run(Nytt_spel);
    else
        Window::keyPressEvent(event);
}

void MFrm::paintEvent(QPaintEvent* event) { QPainter(this).fillRect(event->rect(), Qt::black); }

void MFrm::mnuArkiv_Click() {
    const QAction* const chosen = aaa_.choose(mapToGlobal(main_layout::menu_corner));
    if (chosen == aaa_.mnuNytt_spel)
        Nytt_spel();
    else if (chosen == aaa_.mnuNytt_snabbt)
        Nytt_snabbt();
    else if (chosen == aaa_.mnuAvsluta)
        butAvsluta_Click();
    Spela_ljud(sound_click);
    picture_buttons_->Rel();
}

void MFrm::mnuOm_Click() {
    Spela_ljud(sound_click);
    other_windows_.show_frmOm();
    picture_buttons_->Rel();
}

void MFrm::butMini_Click() {
    minimise();
    Spela_ljud(sound_click);
    picture_buttons_->Rel();
}

void MFrm::butAvsluta_Click() {
    Spela_ljud(sound_click);
    other_windows_.show_Slut();
}

}  // namespace brusbo
