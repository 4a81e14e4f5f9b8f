#pragma once

#include <functional>
#include <vector>

#include "platform/elements.h"
#include "platform/window.h"

namespace brusbo {

/// The winner window, made anew for every winner: it shows `Aktuell_spelare` and all counts as they
/// are when it is created.
class Grattis : public Window {
   public:
    Grattis();

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    void make_elements();
    void Form_Load();
    void Färger();

    void butNytt_spel_Click();
    void butNytt_snabbt_Click();
    void Avsluta_Click();

    Image* imgGrattis_ = nullptr;
    std::vector<Line*> linje_;
    Label* labVisa_vinnare_ = nullptr;
    Label* labResultat_ = nullptr;
    std::vector<Label*> lbNamn_;
    std::vector<Label*> lbResultat_;
    CommandButton* butNytt_spel_ = nullptr;
    CommandButton* butNytt_snabbt_ = nullptr;
    CommandButton* Avsluta_ = nullptr;
};

}  // namespace brusbo
