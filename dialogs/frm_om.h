#pragma once

#include "platform/elements.h"
#include "platform/window.h"

namespace brusbo {

/// The about window.
class frmOm : public Window {
   public:
    frmOm();

   protected:
    void Form_Activate() override;
    void close_requested() override;
    void paintEvent(QPaintEvent* event) override;

   private:
    struct Elements;

    void Klar_Click();

    Picture background_;
};

}  // namespace brusbo
