// The least that a game like ours could be: a window with a board picture, 16 small pictures and 5
// labels, and nothing behind them. The pictures are in the current directory.
#include <QApplication>
#include <QLabel>
#include <QScreen>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QWidget window;
    window.setFixedSize(570, 416);
    const auto show_picture = [&](const QString& file, int x, int y) {
        auto* const picture = new QLabel(&window);
        picture->setPixmap(QPixmap(file));
        picture->move(x, y);
    };
    show_picture(QStringLiteral("board.png"), 190, 36);
    for (int i = 0; i < 16; ++i)
        show_picture(QStringLiteral("piece-%1.png").arg(i), 220 + 40 * (i % 4), 60 + 40 * (i / 4));
    for (int i = 0; i < 5; ++i) {
        auto* const label = new QLabel(QStringLiteral("Brusbo %1").arg(i), &window);
        label->move(20, 60 + 40 * i);
    }
    window.move(application.primaryScreen()->geometry().center() - window.rect().center());
    window.show();
    return application.exec();
}
