#pragma once

#include <functional>
#include <optional>

#include "platform/picture_elements.h"
#include "platform/system_grip.h"

namespace brusbo {

/// The picture `Namnlist`: a press of any button on it moves its window with the pointer until that
/// button is released.
class TitleBar : public Image {
   public:
    TitleBar(QWidget* window, const ElementLook& look, Picture picture);

    /// Called first on each press.
    std::function<void()> release_capture = [] {};

   protected:
    void mousePressEvent(QMouseEvent* event) override { Namnlist_MouseDown(*event); }
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

   private:
    void Namnlist_MouseDown(const QMouseEvent& press);

    std::optional<WindowGrip> grip_;
    Qt::MouseButton button_ = Qt::NoButton;  ///< that holds the window
};

}  // namespace brusbo
