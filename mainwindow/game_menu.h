#pragma once

#include <QKeyEvent>
#include <QMenu>

#include "platform/input_gate.h"

namespace brusbo {

/// Whether a key is the shortcut of `mnuNytt_spel`: F2 alone, and not held down.
bool is_new_game_key(const QKeyEvent& event);

/// The popup menu `aaa`, "Arkiv".
class GameMenu : public QMenu {
   public:
    explicit GameMenu(QWidget* parent);

    /// Shows the menu with its top-left corner at a place of the screen and returns what was
    /// chosen, or nullptr. Must run inside an action of the InputGate.
    QAction* choose(QPoint place);

    QAction* mnuNytt_spel;
    QAction* mnuNytt_snabbt;
    QAction* mnuAvsluta;

   protected:
    /// The shortcut works in the open menu as well.
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

   private:
    QAction* by_shortcut_ = nullptr;
    InputGate::Opening* opening_ = nullptr;
};

}  // namespace brusbo
