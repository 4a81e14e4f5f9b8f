// The game, but as the first thing in each pause, when what has changed has been sent to the
// screen, it looks there through a connection of its own and says whether the main window's picture
// is there.
#include <QApplication>
#include <QPixmap>
#include <cstdio>

#include "benchmarks/other_game.h"
#include "tests/display/harness/x_client.h"

namespace {

class AskingGame : public QObject, public brusbo::Program {
   public:
    void pause(int milliseconds) override {
        // Ahead of all that an event loop finds to do, painting above all.
        QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::HighEventPriority);
        Program::pause(milliseconds);
    }

   protected:
    bool event(QEvent* event) override {
        if (event->type() != QEvent::User) return QObject::event(event);
        const auto windows = QApplication::topLevelWidgets();
        for (QWidget* window : windows) {
            if (window->objectName() != QStringLiteral("MFrm")) continue;
            const QRect place(window->mapToGlobal(QPoint(0, 0)), window->size());
            const QImage seen = person_.image(place);
            const QImage painted = window->grab().toImage().convertToFormat(QImage::Format_RGB32);
            std::puts(seen == painted ? "seen" : "not seen");
            std::fflush(stdout);
        }
        return true;
    }

   private:
    const brusbo::display::XClient person_{qgetenv("DISPLAY").toStdString()};
};

}  // namespace

int main() { return brusbo::run_game<AskingGame>(); }
