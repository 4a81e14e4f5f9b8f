#include "platform/shapes.h"

#include <QPainter>
#include <algorithm>

namespace brusbo {

Shape::Shape(QWidget* parent, const ElementLook& look, QColor colour)
    : QWidget(parent), colour_(colour) {
    set_up(*this, look);
}

void Shape::set_colour(QColor colour) {
    colour_ = colour;
    update();
}

Circle::Circle(QWidget* parent, const ElementLook& look, QColor colour)
    : Shape(parent, look, colour) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Circle::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour());
    const double radius = std::min(width(), height()) / 2.0;
    painter.drawEllipse(QPointF(width() / 2.0, height() / 2.0), radius, radius);
}

void Line::paintEvent(QPaintEvent*) { QPainter(this).fillRect(rect(), colour()); }

}  // namespace brusbo
