#pragma once

#include <QColor>

#include "platform/element.h"

namespace brusbo {

/// What is drawn in one colour.
class Shape : public QWidget {
   public:
    Shape(QWidget* parent, const ElementLook& look, QColor colour);

    QColor colour() const { return colour_; }
    void set_colour(QColor colour);

   private:
    QColor colour_;
};

/// A circle as large as its frame allows; the mouse goes through it.
class Circle : public Shape {
   public:
    Circle(QWidget* parent, const ElementLook& look, QColor colour);

   protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A straight line that fills its place.
class Line : public Shape {
   public:
    using Shape::Shape;

   protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace brusbo
