#pragma once

#include <memory>

#include "platform/window.h"

namespace brusbo {

/// The winner window, made anew for every winner: it shows `Aktuell_spelare` and all counts as they
/// are when it is created.
class Grattis : public Window {
   public:
    Grattis();
    ~Grattis() override;

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    struct Elements;

    void Form_Load();
    void Färger();

    void butNytt_spel_Click();
    void butNytt_snabbt_Click();
    void Avsluta_Click();

    std::unique_ptr<Elements> elements_;
};

}  // namespace brusbo
