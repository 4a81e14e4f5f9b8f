#pragma once

#include <QPoint>

#include "platform/elements.h"

namespace brusbo {

/// The picture `Namnlist`: a press of any button on it moves its window with the pointer until that
/// button is released.
class TitleBar : public Image {
   public:
    explicit TitleBar(QWidget* window);

   protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

   private:
    void Namnlist_MouseDown(const QMouseEvent& press);
    void move_window(const QMouseEvent& event);

    Qt::MouseButton moving_button_ = Qt::NoButton;
    QPoint grip_;  ///< from the window's top-left corner, frame not included
};

}  // namespace brusbo
