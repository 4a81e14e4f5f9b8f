#include "mainwindow/mfrm.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "engine/engine.h"
#include "platform/input_gate.h"
#include "platform/keyboard.h"

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
    qApp->installEventFilter(this);
    elements_.butMini.setToolTip(QStringLiteral("Minimera"));
    elements_.butAvsluta.setToolTip(QStringLiteral("Avsluta"));
    elements_.Namnlist.release_capture = [this] { picture_buttons_.release_capture(); };
    connect_clicks();
    center_on(screen_area());
}

void MFrm::connect_clicks() {
    const auto settled_click = [this](QAbstractButton& button, InputGate::Function handler) {
        on_click(button, settled(std::move(handler)));
    };
    settled_click(elements_.Tärning, Tärning_Click);
    settled_click(elements_.butEn_pjäs, butEn_pjäs_Click);
    settled_click(elements_.butTvå_pjäser, butTvå_pjäser_Click);
    settled_click(elements_.butNästa, butNästa_Click);
    for (std::int16_t b = 0; b < piece_count; ++b)
        settled_click(
            *elements_.Pjäs[static_cast<std::size_t>(b)], [b] { Pjäs_Click(b); });
    settled_click(
        elements_.mnuArkiv, [this] { mnuArkiv_Click(); });
    settled_click(
        elements_.mnuOm, [this] { mnuOm_Click(); });
    settled_click(
        elements_.butMini, [this] { butMini_Click(); });
    settled_click(elements_.butAvsluta, [this] { butAvsluta_Click(); });
}

std::vector<QAbstractButton*> MFrm::clickable() const {
    std::vector<QAbstractButton*> found;
    // Beside an open menu a click only closes it.
    if (!takes_input(*this) || QApplication::activePopupWidget() != nullptr) return found;
    for (QAbstractButton* button :
         std::initializer_list<QAbstractButton*>{&elements_.Tärning, &elements_.butEn_pjäs,
                                                 &elements_.butTvå_pjäser, &elements_.butNästa})
        if (button->isEnabled() && button->isVisible()) found.push_back(button);
    // By their squares; of those that share one, the piece on top.
    std::map<std::int16_t, QAbstractButton*> pieces;
    for (std::int16_t b = 0; b < piece_count; ++b)
        if (can_move(b))
            pieces[Spelare[Aktuell_spelare].Ruta[Pjäsen(b)]] =
                elements_.Pjäs[static_cast<std::size_t>(b)];
    for (const auto& [square, piece] : pieces) found.push_back(piece);
    found.insert(found.end(), {&elements_.mnuArkiv, &elements_.mnuOm, &elements_.butMini,
                               &elements_.butAvsluta});
    return found;
}

InputGate::Function MFrm::settled(InputGate::Function handler) {
    return [this, handler = std::move(handler)] {
        setCursor(Qt::ArrowCursor);
        handler();
        settle();
    };
}

void MFrm::settle() {
    show_hand();
    const auto buttons = clickable();
    QWidget* const focus = focusWidget();
    if (Keyboard::marks_focus() && std::ranges::count(buttons, focus) > 0) return;
    if (elements_.butNästa.isVisible())
        elements_.butNästa.setFocus();
    else if (Keyboard::marks_focus() && elements_.Tärning.isEnabled())
        elements_.Tärning.setFocus();
    else if (focus != nullptr)
        focus->clearFocus();
}

void MFrm::show_hand() {
    const QPointF place = mapFromGlobal(InputGate::instance().pointer());
    const auto buttons = clickable();
    const bool hand = std::ranges::count(buttons, childAt(place.toPoint())) > 0;
    setCursor(hand ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

bool MFrm::eventFilter(QObject* receiver, QEvent* event) {
    if (!receiver->isWidgetType() || InputGate::instance().closed()) return false;
    if (event->type() == QEvent::Enter || event->type() == QEvent::MouseMove) show_hand();
    if (event->type() == QEvent::MouseButtonPress) settle();
    return false;
}

bool MFrm::focusNextPrevChild(bool next) {
    auto buttons = clickable();
    // What an action takes the focus from is settled when that has ended.
    if (InputGate::instance().closed() || buttons.empty()) return false;
    if (!next) std::ranges::reverse(buttons);
    const auto old = std::ranges::find(buttons, focusWidget());
    const bool wraps = old == buttons.end() || old + 1 == buttons.end();
    (*(wraps ? buttons.begin() : old + 1))->setFocus();
    return true;
}

void MFrm::Form_Load() { Ladda_Positioner(); }

void MFrm::Form_Activate() { Visa_tur(); }

void MFrm::close_requested() { butAvsluta_Click(); }

void MFrm::keyPressEvent(QKeyEvent* event) {
    auto* const focus = qobject_cast<QAbstractButton*>(focusWidget());
    if (is_new_game_key(*event))
        InputGate::instance().run(settled([this] { mnuNytt_spel_Click(); }));
    else if (is_arrow_back(*event) || is_arrow_on(*event))
        focusNextPrevChild(is_arrow_on(*event));
    else if (is_return(*event) || (event->key() == Qt::Key_Space && !event->isAutoRepeat()))
        (focus != nullptr ? focus : &elements_.Tärning)->click();
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
