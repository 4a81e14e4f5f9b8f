#pragma once

#include <functional>
#include <memory>

#include "platform/pictures.h"
#include "platform/window.h"

namespace brusbo {

/// The start window: number of players, names, sound. Every change goes to the state of the game at
/// once; the first one showing sets the defaults.
class Startfrm : public Window {
   public:
    static constexpr Picture background = picture("side-panel");

    /// What player 1..4 is called until somebody types another name.
    static QString default_name(int player);

    /// What the start window wants of the windows it opens.
    struct MainWindow {
        std::function<void()> load;  ///< without showing it
        std::function<void()> show;  ///< or make it the active one again
    };

    explicit Startfrm(MainWindow main_window);
    ~Startfrm() override;

    /// What goes before the first showing: the defaults of the state, and the main window's
    /// loading.
    void Form_Load();

    /// Returns when the window has been painted for the first time, or after a tenth of a second:
    /// on a hidden desktop nothing is painted.
    void wait_until_painted();

   protected:
    void Form_Activate() override;
    void close_requested() override { Form_Unload(); }
    /// Return starts the game from every element.
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

   private:
    struct Elements;

    void Form_Unload();
    void AntSpelare_Click(int Index);
    void Namn_Change(int Index);
    void Sound_Click();
    void Starta_Click();

    MainWindow main_window_;
    std::function<void()> painted_;
    std::unique_ptr<Elements> elements_;
};

}  // namespace brusbo
