#include "mainwindow/game_menu.h"

#include <QKeyEvent>
#include <utility>

#include "platform/input_gate.h"
#include "platform/layout.h"

namespace brusbo {

GameMenu::GameMenu(QWidget* parent)
    : QMenu(parent),
      mnuNytt_spel(addAction(QStringLiteral("Nytt spel"))),
      mnuNytt_snabbt(addAction(QStringLiteral("Nytt spel (snabbt, samma spelare)"))),
      mnuAvsluta(nullptr) {
    setObjectName(QStringLiteral("aaa"));
    setTitle(QStringLiteral("Arkiv"));
    setAccessibleName(title());
    setFont(brusbo::font(Font::regular));
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
    by_shortcut_ = nullptr;
    const InputGate::Opening opening;
    QAction* const chosen = exec(place);
    return by_shortcut_ != nullptr ? std::exchange(by_shortcut_, nullptr) : chosen;
}

void GameMenu::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F2) {
        by_shortcut_ = mnuNytt_spel;
        close();
    } else {
        QMenu::keyPressEvent(event);
    }
}

}  // namespace brusbo
