#pragma once

#include <memory>

#include "dialogs/frm_om.h"
#include "dialogs/grattis.h"
#include "dialogs/slut.h"
#include "dialogs/startfrm.h"
#include "engine/services.h"
#include "mainwindow/mfrm.h"
#include "mainwindow/mfrm_screen.h"
#include "platform/input_gate.h"
#include "platform/keyboard.h"
#include "platform/random.h"
#include "platform/sound.h"

namespace brusbo {

/// The running program: its windows, and what the rules want of the world outside the main window.
/// One at a time, after prepare_application().
class Program : public Services, public OtherWindows {
   public:
    /// The start-up procedure: creates the start window, which loads the main window's data, and
    /// shows it. Returns when it has been painted and the main window made, before any input is
    /// handled. A positions file that cannot be used ends the program with a message instead.
    void Main();

    void play_sound(std::string_view file_name) override;
    void pause(int milliseconds) override;
    double time_of_day() override;
    void seed_random(double seed) override;
    float random_value() override;
    void beep() override;
    void show_Grattis() override;
    void close_Grattis() override;
    void show_Startfrm() override;

    void show_frmOm() override;
    void show_Slut() override;

   private:
    void load_MFrm();

    InputGate gate_;
    Keyboard keyboard_;
    Random random_;
    Sound sound_;
    std::unique_ptr<Startfrm> Startfrm_;
    std::unique_ptr<MFrm> MFrm_;
    MFrmScreen screen_;
    std::unique_ptr<Grattis> Grattis_;
    std::unique_ptr<Slut> Slut_;
};

/// What the QApplication needs before any window: our look on every desktop, and no end with the
/// last window.
void prepare_application();

}  // namespace brusbo
