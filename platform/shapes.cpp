#include "platform/shapes.h"

#include <QPainter>
#include <algorithm>

namespace brusbo {

Circle::Circle(QWidget* parent, const ElementLook& look, QColor colour)
    : QWidget(parent), colour_(colour) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    set_up(*this, look);
}

void Circle::set_colour(QColor colour) {
    colour_ = colour;
    update();
}

void Circle::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour_);
    const double radius = std::min(width(), height()) / 2.0;
    painter.drawEllipse(QPointF(width() / 2.0, height() / 2.0), radius, radius);
}

Line::Line(QWidget* parent, const ElementLook& look, QColor colour)
    : QWidget(parent), colour_(colour) {
    set_up(*this, look);
}

void Line::set_colour(QColor colour) {
    colour_ = colour;
    update();
}

void Line::paintEvent(QPaintEvent*) { QPainter(this).fillRect(rect(), colour_); }

}  // namespace brusbo
