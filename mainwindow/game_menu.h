#pragma once

#include <QKeyEvent>
#include <QMenu>

namespace brusbo {

/// Whether a key is the shortcut of `mnuNytt_spel`: F2 alone, and not held down.
bool is_new_game_key(const QKeyEvent& event);

/// The popup menu `aaa`, "Arkiv". Its items are chosen by the keyboard and the left mouse button.
class GameMenu : public QMenu {
   public:
    explicit GameMenu(QWidget* parent);

    /// Shows the menu with its top-left corner at a place of the screen and returns what was
    /// chosen, or nullptr. Must run inside an action of the InputGate.
    const QAction* choose(QPoint place);

    QAction* const mnuNytt_spel;
    QAction* const mnuNytt_snabbt;
    QAction* const mnuAvsluta;

   protected:
    /// The shortcut works in the open menu as well.
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

   private:
    QAction* add_item(const char* name, const char* caption);
    /// Another button on an item; beside the menu any button closes it.
    bool leaves_items_alone(const QMouseEvent& event) const;
};

}  // namespace brusbo
