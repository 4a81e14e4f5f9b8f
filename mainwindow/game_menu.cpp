#include "mainwindow/game_menu.h"

#include <QEventLoop>

#include "platform/fonts.h"
#include "platform/input_gate.h"

namespace brusbo {

bool is_new_game_key(const QKeyEvent& event) {
    const auto modifiers = event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
    return event.key() == Qt::Key_F2 && modifiers == Qt::NoModifier && !event.isAutoRepeat();
}

GameMenu::GameMenu(QWidget* parent)
    : QMenu(parent),
      mnuNytt_spel(add_item("mnuNytt_spel", "Nytt spel")),
      mnuNytt_snabbt(add_item("mnuNytt_snabbt", "Nytt spel (snabbt, samma spelare)")),
      mnuAvsluta(add_item("mnuAvsluta", "Avsluta")) {
    setObjectName(QStringLiteral("aaa"));
    setTitle(QStringLiteral("Arkiv"));
    setAccessibleName(title());
    setFont(window_font(Font::regular));
    insertSeparator(mnuAvsluta)->setObjectName(QStringLiteral("nada"));
    // Shown beside the item; the main window listens for the key itself, since a menu that no
    // menu bar shows has no shortcuts of its own.
    mnuNytt_spel->setShortcut(Qt::Key_F2);
    mnuNytt_spel->setShortcutVisibleInContextMenu(true);
}

QAction* GameMenu::add_item(const char* name, const char* caption) {
    QAction* const item = addAction(QString::fromUtf8(caption));
    item->setObjectName(QString::fromUtf8(name));
    return item;
}

const QAction* GameMenu::choose(QPoint place) {
    // Pressed again by other means than the mouse, which the open menu would have got.
    if (isVisible()) {
        close();
        return nullptr;
    }
    const QAction* chosen = nullptr;
    QEventLoop loop;
    connect(this, &QMenu::triggered, &loop, [&](const QAction* item) { chosen = item; });
    connect(this, &QMenu::aboutToHide, &loop, &QEventLoop::quit);
    popup(place);
    InputGate::instance().open_for(loop);
    return chosen;
}

void GameMenu::keyPressEvent(QKeyEvent* event) {
    if (!is_new_game_key(*event)) return QMenu::keyPressEvent(event);
    close();
    mnuNytt_spel->trigger();
}

bool GameMenu::leaves_items_alone(const QMouseEvent& event) const {
    return event.button() != Qt::LeftButton && rect().contains(event.position().toPoint());
}

void GameMenu::mousePressEvent(QMouseEvent* event) {
    if (!leaves_items_alone(*event)) QMenu::mousePressEvent(event);
}

void GameMenu::mouseReleaseEvent(QMouseEvent* event) {
    if (!leaves_items_alone(*event)) QMenu::mouseReleaseEvent(event);
}

}  // namespace brusbo
