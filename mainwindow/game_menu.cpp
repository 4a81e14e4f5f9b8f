#include "mainwindow/game_menu.h"

#include <utility>

#include "platform/layout.h"

namespace brusbo {

bool is_new_game_key(const QKeyEvent& event) {
    const auto modifiers = event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
    return event.key() == Qt::Key_F2 && modifiers == Qt::NoModifier && !event.isAutoRepeat();
}

GameMenu::GameMenu(QWidget* parent)
    : QMenu(parent),
      mnuNytt_spel(addAction(QStringLiteral("Nytt spel"))),
      mnuNytt_snabbt(addAction(QStringLiteral("Nytt spel (snabbt, samma spelare)"))),
      mnuAvsluta(nullptr) {
    setObjectName(QStringLiteral("aaa"));
    setTitle(QStringLiteral("Arkiv"));
    setAccessibleName(title());
    setFont(window_font(Font::regular));
    addSeparator()->setObjectName(QStringLiteral("nada"));
    mnuAvsluta = addAction(QStringLiteral("Avsluta"));

    mnuNytt_spel->setObjectName(QStringLiteral("mnuNytt_spel"));
    // Shown beside the item; the main window listens for the key itself, since a menu that no
    // menu bar shows has no shortcuts of its own.
    mnuNytt_spel->setShortcut(Qt::Key_F2);
    mnuNytt_spel->setShortcutVisibleInContextMenu(true);
    mnuNytt_snabbt->setObjectName(QStringLiteral("mnuNytt_snabbt"));
    mnuAvsluta->setObjectName(QStringLiteral("mnuAvsluta"));
}

QAction* GameMenu::choose(QPoint place) {
    // Pressed again by other means than the mouse, which the open menu would have got.
    if (opening_ != nullptr) {
        close();
        return nullptr;
    }
    by_shortcut_ = nullptr;
    InputGate::Opening opening;
    opening_ = &opening;
    QAction* const chosen = exec(place);
    opening_ = nullptr;
    return by_shortcut_ != nullptr ? std::exchange(by_shortcut_, nullptr) : chosen;
}

void GameMenu::keyPressEvent(QKeyEvent* event) {
    if (is_new_game_key(*event)) {
        by_shortcut_ = mnuNytt_spel;
        close();
    } else {
        QMenu::keyPressEvent(event);
    }
}

void GameMenu::hideEvent(QHideEvent* event) {
    QMenu::hideEvent(event);
    if (opening_ != nullptr) opening_->end();
}

}  // namespace brusbo
