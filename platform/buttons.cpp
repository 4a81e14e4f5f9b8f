#include "platform/buttons.h"

#include <QKeyEvent>
#include <QPainter>

namespace brusbo {

namespace {

constexpr QRgb black = 0xFF000000;

/// Fills the rectangle like a button's face: lit from the top left, the other way while pressed in.
void paint_face(QPainter& painter, const QRect& box, QColor face, bool pressed) {
    const QColor light = face.lighter(118);
    const QColor dark = face.darker(145);
    painter.fillRect(box, face);
    const QRect inner = box.adjusted(1, 1, -1, -1);
    const auto edge = [&](QColor top_left, QColor bottom_right) {
        painter.fillRect(inner.left(), inner.top(), inner.width(), 1, top_left);
        painter.fillRect(inner.left(), inner.top(), 1, inner.height(), top_left);
        painter.fillRect(inner.left(), inner.bottom(), inner.width(), 1, bottom_right);
        painter.fillRect(inner.right(), inner.top(), 1, inner.height(), bottom_right);
    };
    if (pressed)
        edge(dark, face);
    else
        edge(light, dark);
    const QColor border = face.darker(260);
    painter.fillRect(box.left(), box.top(), box.width(), 1, border);
    painter.fillRect(box.left(), box.bottom(), box.width(), 1, border);
    painter.fillRect(box.left(), box.top(), 1, box.height(), border);
    painter.fillRect(box.right(), box.top(), 1, box.height(), border);
}

void paint_focus(QPainter& painter, const QRect& box) {
    painter.setPen(QPen(QColor(0, 0, 0, 150), 1, Qt::DotLine));
    painter.drawRect(QRectF(box.adjusted(3, 3, -4, -4)).translated(0.5, 0.5));
}

}  // namespace

LabelButton::LabelButton(QWidget* parent, const ElementLook& look, const char* text, QColor face)
    : QAbstractButton(parent), face_(face) {
    setText(QString::fromUtf8(text));
    setFont(window_font(Font::regular));
    setFocusPolicy(Qt::NoFocus);
    set_up(*this, look);
}

void LabelButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    painter.fillRect(rect().adjusted(1, 1, -1, -1), isDown() ? face_.darker(112) : face_);
    painter.setPen(black);
    painter.drawText(rect(), Qt::AlignCenter, text());
}

CommandButton::CommandButton(QWidget* parent, const ElementLook& look, const char* text,
                             QColor face, Font text_font)
    : QAbstractButton(parent), face_(face) {
    setText(QString::fromUtf8(text));
    setFont(window_font(text_font));
    setFocusPolicy(Qt::StrongFocus);
    set_up(*this, look);
}

void CommandButton::set_face(QColor face) {
    face_ = face;
    update();
}

void CommandButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paint_face(painter, rect(), face_, isDown());
    painter.setPen(black);
    painter.drawText(isDown() ? rect().translated(1, 1) : rect(), Qt::AlignCenter, text());
    if (hasFocus()) paint_focus(painter, rect());
}

void CommandButton::keyPressEvent(QKeyEvent* event) {
    const bool return_key = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (return_key && !event->isAutoRepeat())
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

OptionButton::OptionButton(QWidget* parent, const ElementLook& look, QColor face)
    : QAbstractButton(parent), face_(face) {
    setCheckable(true);
    setAutoExclusive(true);
    setFocusPolicy(Qt::StrongFocus);
    set_up(*this, look);
}

void OptionButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paint_face(painter, rect(), face_, isChecked() || isDown());
    if (isChecked()) {
        painter.setRenderHint(QPainter::Antialiasing);
        const QPointF middle = QRectF(rect()).center();
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0, 0, 0, 190));
        painter.drawEllipse(middle, 4.0, 4.0);
        painter.setBrush(Qt::white);
        painter.drawEllipse(middle, 3.0, 3.0);
        painter.setRenderHint(QPainter::Antialiasing, false);
    }
    if (hasFocus()) {
        painter.setPen(QPen(QColor(0, 0, 0, 170), 1, Qt::DotLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(QRectF(rect().adjusted(2, 2, -3, -3)).translated(0.5, 0.5));
    }
}

CheckBox::CheckBox(QWidget* parent, const ElementLook& look) : QCheckBox(parent) {
    setChecked(true);
    set_up(*this, look);
}

void CheckBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(70, 40, 15));
    painter.fillRect(rect().adjusted(1, 1, -1, -1), isDown() ? QColor(225, 225, 225) : Qt::white);
    if (isChecked()) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::black, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const double w = width();
        const double h = height();
        painter.drawPolyline(
            QPolygonF({{w * 0.25, h * 0.52}, {w * 0.43, h * 0.72}, {w * 0.76, h * 0.3}}));
        painter.setRenderHint(QPainter::Antialiasing, false);
    }
    if (hasFocus()) {
        painter.setPen(QPen(QColor(0, 0, 0, 150), 1, Qt::DotLine));
        painter.drawRect(QRectF(rect().adjusted(1, 1, -2, -2)).translated(0.5, 0.5));
    }
}

}  // namespace brusbo
