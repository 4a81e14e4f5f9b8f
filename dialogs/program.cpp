#include "dialogs/program.h"

#include <QApplication>
#include <QPalette>
#include <QPixmapCache>
#include <QStyleFactory>
#include <QThreadPool>
#include <exception>
#include <filesystem>
#include <system_error>

#include "engine/engine.h"
#include "platform/accessible.h"
#include "platform/ending.h"

namespace brusbo {

// The first action: whatever the players do meanwhile comes after it.
void Program::Main() {
    set_world(screen_, *this);
    gate_.run([this] {
        Startfrm_ = std::make_unique<Startfrm>(
            Startfrm::MainWindow{[this] { load_MFrm(); }, [this] { MFrm_->show_active(); }});
        Startfrm_->Form_Load();
        Startfrm_->show_active();
        // Until then the main window's elements would only be in the way of a quick start.
        Startfrm_->wait_until_painted();
        QApplication::setWindowIcon(program_icon());
        MFrm_ = std::make_unique<MFrm>(*this);
        screen_.show_on(*MFrm_);
    });
}

void Program::load_MFrm() {
    try {
        MFrm::Form_Load();
    } catch (const std::exception& error) {
        stop_with_message(QStringLiteral("Brusbo kan inte starta.\n\n") +
                          QString::fromUtf8(error.what()));
    }
}

void Program::play_sound(std::string_view file_name) {
    std::error_code gone;
    sound_.play(std::filesystem::current_path(gone) / file_name);
}

void Program::pause(int milliseconds) { gate_.pause(milliseconds); }

double Program::time_of_day() { return brusbo::time_of_day(); }

void Program::seed_random(double seed) { random_.seed(seed); }

float Program::random_value() { return random_.value(); }

void Program::beep() { QApplication::beep(); }

void Program::show_Grattis() {
    Grattis_ = std::make_unique<Grattis>();
    Grattis_->center_on(MFrm_->geometry());
    Grattis_->show_modal();
    // The click that closed the window may still be on its way through its button.
    Grattis_.release()->deleteLater();
    MFrm_->show_active();
}

void Program::close_Grattis() {
    if (Grattis_) Grattis_->hide();
}

void Program::show_Startfrm() { Startfrm_->show_modal(); }

void Program::show_frmOm() {
    auto* const window = new frmOm;
    window->show_modal();
    window->deleteLater();
    MFrm_->show_active();
}

void Program::show_Slut() {
    if (!Slut_) {
        Slut_ = std::make_unique<Slut>();
        Slut_->center_on(MFrm_->geometry());
    }
    Slut_->show_active();
}

void prepare_application() {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(QPalette(QColor(240, 240, 240)));
    QApplication::setFont(window_font(Font::regular));
    QGuiApplication::setDesktopFileName(QStringLiteral("brusbo"));
    QApplication::setQuitOnLastWindowClosed(false);
    // A blinking cursor would wake the program twice a second.
    QApplication::setCursorFlashTime(0);
    // Threads that Qt paints with would wake up once more, to end, when half a minute has passed,
    // and so would its cache of pixmaps, to be looked over; the game's pictures are not in it.
    QThreadPool::globalInstance()->setExpiryTimeout(-1);
    QPixmapCache::setCacheLimit(0);
    install_accessible_buttons();
}

}  // namespace brusbo
