#pragma once

#include <QColor>

#include "platform/element.h"

namespace brusbo {

/// A circle as large as its frame allows, filled with one colour; the mouse goes through it.
class Circle : public QWidget {
    Q_OBJECT

   public:
    Circle(QWidget* parent, const ElementLook& look, QColor colour);

    QColor colour() const { return colour_; }
    void set_colour(QColor colour);

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    QColor colour_;
};

/// A straight line that fills its place with one colour.
class Line : public QWidget {
    Q_OBJECT

   public:
    Line(QWidget* parent, const ElementLook& look, QColor colour);

    QColor colour() const { return colour_; }
    void set_colour(QColor colour);

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    QColor colour_;
};

}  // namespace brusbo
