#include "platform/buttons.h"

#include <QKeyEvent>
#include <QLinearGradient>
#include <QPainter>

#include "platform/keyboard.h"

namespace brusbo {

namespace {

constexpr QRgb black = 0xFF000000;

/// A face of the picture buttons' family: rounded corners, a brown rim, lit from above, or from
/// below while pressed in.
void paint_rounded_face(QPainter& painter, const QRectF& box, QColor face, bool pressed) {
    const QColor light = face.lighter(118);
    const double rim_and_light = 2 / box.height();
    QLinearGradient relief(box.topLeft(), box.bottomLeft());
    if (pressed) relief = QLinearGradient(box.bottomLeft(), box.topLeft());
    relief.setStops({{0, light},
                     {rim_and_light - 0.001, light},
                     {rim_and_light, face},
                     {0.5, face},
                     {1, face.darker(118)}});
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0x6B, 0x41, 0x19), 1));
    painter.setBrush(relief);
    painter.drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), 3.5, 3.5);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

/// Fills the rectangle like a button's face: lit from the top left, the other way while pressed in.
void paint_face(QPainter& painter, const QRect& box, QColor face, bool pressed) {
    const QColor light = face.lighter(118);
    const QColor dark = face.darker(145);
    painter.fillRect(box, face);
    const auto edge = [&](const QRect& ring, QColor top_left, QColor bottom_right) {
        painter.fillRect(ring.left(), ring.top(), ring.width(), 1, top_left);
        painter.fillRect(ring.left(), ring.top(), 1, ring.height(), top_left);
        painter.fillRect(ring.left(), ring.bottom(), ring.width(), 1, bottom_right);
        painter.fillRect(ring.right(), ring.top(), 1, ring.height(), bottom_right);
    };
    edge(box.adjusted(1, 1, -1, -1), pressed ? dark : light, pressed ? face : dark);
    edge(box, face.darker(260), face.darker(260));
}

/// The text of a button, on one line inside its border.
void set_caption(QAbstractButton& button, const char* text, Font font) {
    button.setText(QString::fromUtf8(text));
    button.setFont(fitted(font, button.text(), button.size() - QSize(4, 0)));
}

}  // namespace

void on_click(QAbstractButton& button, InputGate::Function handler) {
    QObject::connect(
        &button, &QAbstractButton::clicked, &button,
        [handler = std::move(handler)] { InputGate::instance().run(handler); });
}

bool shows_focus(const QWidget& element) { return element.hasFocus() && Keyboard::marks_focus(); }

void paint_focus(QPainter& painter, const QRect& box, int inside, int opacity) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0, 0, 0, opacity), 1, Qt::DotLine));
    const QRect mark = box.adjusted(inside, inside, -inside - 1, -inside - 1);
    painter.drawRect(QRectF(mark).translated(0.5, 0.5));
}

LabelButton::LabelButton(QWidget* parent, const ElementLook& look, const char* text, QColor face)
    : QAbstractButton(parent), face_(face) {
    setFocusPolicy(Qt::NoFocus);
    set_up(*this, look);
    set_caption(*this, text, Font::regular);
}

void LabelButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    painter.fillRect(rect().adjusted(1, 1, -1, -1), isDown() ? face_.darker(112) : face_);
    painter.setPen(black);
    painter.drawText(rect(), Qt::AlignCenter, text());
    if (shows_focus(*this)) paint_focus(painter, rect(), 2);
}

CommandButton::CommandButton(QWidget* parent, const ElementLook& look, const char* text,
                             QColor face, Font text_font)
    : QAbstractButton(parent), face_(face) {
    setFocusPolicy(Qt::StrongFocus);
    set_up(*this, look);
    set_caption(*this, text, text_font);
}

void CommandButton::set_face(QColor face) {
    face_ = face;
    update();
}

void CommandButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (face_.isValid())
        paint_rounded_face(painter, rect(), face_, isDown());
    else
        paint_face(painter, rect(), palette().color(QPalette::Button), isDown());
    painter.setPen(black);
    painter.drawText(isDown() ? rect().translated(1, 1) : rect(), Qt::AlignCenter, text());
    if (shows_focus(*this)) paint_focus(painter, rect(), 3);
}

void CommandButton::keyPressEvent(QKeyEvent* event) {
    if (is_return(*event))
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
    if (shows_focus(*this)) paint_focus(painter, rect(), 2, 170);
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
    if (shows_focus(*this)) paint_focus(painter, rect(), 1);
}

}  // namespace brusbo
