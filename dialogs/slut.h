#pragma once

#include "platform/window.h"

namespace brusbo {

/// The farewell window. It can be resized by its frame; its elements stay where they are.
class Slut : public Window {
   public:
    Slut();

   protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

   private:
    struct Elements;

    void Stäng_Click();
    QRect inside_frame() const;
    Qt::Edges edges_at(QPoint place) const;
    void resize_to(QPoint global_place);

    Qt::Edges grip_;       ///< the edges that the mouse holds
    QPoint grip_place_;    ///< where on the screen it took them
    QRect grip_geometry_;  ///< of the window at that moment
};

}  // namespace brusbo
