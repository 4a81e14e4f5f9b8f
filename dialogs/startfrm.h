#pragma once

#include <functional>
#include <vector>

#include "platform/elements.h"
#include "platform/window.h"

namespace brusbo {

/// The start window: number of players, names, sound. Every change goes to the state of the game at
/// once; the first one showing sets the defaults.
class Startfrm : public Window {
   public:
    /// `show_MFrm` shows the main window, or makes it the active one again; `painted` is called
    /// once, when the window has been painted for the first time.
    Startfrm(std::function<void()> show_MFrm, std::function<void()> painted);

    /// What goes before the first activation: the defaults of the state.
    void Form_Load();

   protected:
    void Form_Activate() override;
    void close_requested() override;
    void paintEvent(QPaintEvent* event) override;

   private:
    void make_elements();
    void connect_elements();

    void AntSpelare_Click(int Index);
    void Namn_Change(int Index);
    void Sound_Click();
    void Starta_Click();

    std::function<void()> show_MFrm_;
    std::function<void()> painted_;
    std::vector<OptionButton*> AntSpelare_;
    std::vector<NameBox*> Namn_;
    CheckBox* Sound_ = nullptr;
    CommandButton* Starta_ = nullptr;
};

}  // namespace brusbo
