#include "mainwindow/mfrm.h"

#include <QKeyEvent>
#include <QPainter>

#include "engine/engine.h"
#include "platform/input_gate.h"

namespace brusbo {

MFrm::MFrm(OtherWindows& other_windows)
    : Window("MFrm", "Brusbo",
             Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::MSWindowsFixedSizeDialogHint,
             {570, 416}),
      other_windows_(other_windows),
      elements_(this),
      picture_buttons_(elements_.mnuArkiv, elements_.mnuOm, elements_.butMini,
                       elements_.butAvsluta),
      aaa_(this) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    elements_.butMini.setToolTip(QStringLiteral("Minimera"));
    elements_.butAvsluta.setToolTip(QStringLiteral("Avsluta"));
    elements_.Namnlist.release_capture = [this] { picture_buttons_.release_capture(); };
    connect_clicks();
    center_on(screen_area());
}

void MFrm::connect_clicks() {
    on_click(elements_.Tärning, Tärning_Click);
    on_click(elements_.butEn_pjäs, butEn_pjäs_Click);
    on_click(elements_.butTvå_pjäser, butTvå_pjäser_Click);
    on_click(elements_.butNästa, butNästa_Click);
    for (std::int16_t b = 0; b < piece_count; ++b)
        on_click(
            *elements_.Pjäs[static_cast<std::size_t>(b)], [b] { Pjäs_Click(b); });
    on_click(
        elements_.mnuArkiv, [this] { mnuArkiv_Click(); });
    on_click(
        elements_.mnuOm, [this] { mnuOm_Click(); });
    on_click(
        elements_.butMini, [this] { butMini_Click(); });
    on_click(elements_.butAvsluta, [this] { butAvsluta_Click(); });
}

void MFrm::Form_Load() { Ladda_Positioner(); }

void MFrm::Form_Activate() { Visa_tur(); }

void MFrm::close_requested() { butAvsluta_Click(); }

void MFrm::keyPressEvent(QKeyEvent* event) {
    if (is_new_game_key(*event))
        InputGate::instance().run([this] { mnuNytt_spel_Click(); });
    else
        Window::keyPressEvent(event);
}

void MFrm::paintEvent(QPaintEvent* event) { QPainter(this).fillRect(event->rect(), Qt::black); }

void MFrm::mnuArkiv_Click() {
    const QWidget& button = elements_.mnuArkiv;
    const QAction* const chosen = aaa_.choose(button.mapToGlobal(QPoint(0, button.height())));
    if (chosen == aaa_.mnuNytt_spel)
        mnuNytt_spel_Click();
    else if (chosen == aaa_.mnuNytt_snabbt)
        mnuNytt_snabbt_Click();
    else if (chosen == aaa_.mnuAvsluta)
        mnuAvsluta_Click();
    Spela_ljud(sound_click);
    picture_buttons_.Rel();
}

void MFrm::mnuOm_Click() {
    Spela_ljud(sound_click);
    other_windows_.show_frmOm();
    picture_buttons_.Rel();
}

void MFrm::butMini_Click() {
    minimise();
    Spela_ljud(sound_click);
    picture_buttons_.Rel();
}

void MFrm::butAvsluta_Click() {
    Spela_ljud(sound_click);
    other_windows_.show_Slut();
}

void MFrm::mnuNytt_spel_Click() { Nytt_spel(); }

void MFrm::mnuNytt_snabbt_Click() { Nytt_snabbt(); }

void MFrm::mnuAvsluta_Click() { butAvsluta_Click(); }

}  // namespace brusbo
