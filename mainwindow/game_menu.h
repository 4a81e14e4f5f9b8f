#pragma once

#include <QMenu>

namespace brusbo {

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

   private:
    QAction* by_shortcut_ = nullptr;
};

}  // namespace brusbo
