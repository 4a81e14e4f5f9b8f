#include "platform/elements.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QValidator>
#include <algorithm>

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

/// Keeps a name within its length by leaving out the surplus just before the cursor, which is
/// what was inserted last.
class NameLength : public QValidator {
   public:
    using QValidator::QValidator;

    State validate(QString& input, int& cursor) const override {
        auto characters = input.toUcs4();
        const auto surplus = characters.size() - NameBox::most_characters;
        if (surplus > 0) {
            const auto before = QStringView(input).left(cursor).toUcs4().size();
            const auto first = std::max<decltype(surplus)>(before - surplus, 0);
            characters.remove(first, surplus);
            input = QString::fromUcs4(reinterpret_cast<const char32_t*>(characters.constData()),
                                      characters.size());
            cursor = static_cast<int>(
                QString::fromUcs4(reinterpret_cast<const char32_t*>(characters.constData()), first)
                    .size());
        }
        return Acceptable;
    }
};

}  // namespace

void set_up(QWidget& widget, const ElementLook& look) {
    widget.setObjectName(QString::fromUtf8(look.name));
    widget.setGeometry(look.place.pixels());
    widget.setAccessibleName(QString::fromUtf8(look.accessible));
    widget.setAttribute(Qt::WA_NoMousePropagation);
    widget.setVisible(look.visible);
}

Image::Image(QWidget* parent, const ElementLook& look, std::optional<Picture> picture)
    : QWidget(parent), picture_(picture) {
    set_up(*this, look);
}

void Image::set_picture(Picture picture) {
    picture_ = picture;
    update();
}

void Image::paintEvent(QPaintEvent*) {
    if (!picture_) return;
    QPainter painter(this);
    paint(painter, *picture_, {0, 0});
}

PictureButton::PictureButton(QWidget* parent, const ElementLook& look,
                             std::optional<Picture> picture)
    : QAbstractButton(parent), picture_(picture) {
    setFocusPolicy(Qt::NoFocus);
    set_up(*this, look);
}

void PictureButton::set_picture(Picture picture) {
    picture_ = picture;
    update();
}

void PictureButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (picture_)
        paint(painter, *picture_, {0, 0});
    else
        painter.fillRect(rect(), Qt::black);
}

Label::Label(QWidget* parent, const ElementLook& element, const Look& look, const char* text)
    : QLabel(parent), look_(look), accessible_(QString::fromUtf8(element.accessible)) {
    setTextFormat(Qt::PlainText);
    setFont(brusbo::font(look.font));
    setAlignment(look.alignment | Qt::AlignTop | Qt::AlignAbsolute);
    setWordWrap(look.wraps);
    set_colour(QColor::fromRgb(look.colour));
    set_up(*this, element);
    set_text(QString::fromUtf8(text));
}

void Label::set_text(const QString& text) {
    setText(text);
    // A screen reader reads the text itself, and tells when it changes.
    setAccessibleName(text.isEmpty() ? accessible_ : text);
    fit();
}

void Label::set_colour(QColor colour) {
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, colour);
    setPalette(colours);
}

void Label::fit() {
    shown_ = text();
    QFont fitted = brusbo::font(look_.font);
    if (!look_.wraps) {
        constexpr int smallest = 8;  // pixels
        const int width = look_.text_width > 0 ? look_.text_width : this->width();
        while (QFontMetrics(fitted).horizontalAdvance(shown_) > width &&
               fitted.pixelSize() > smallest)
            fitted.setPixelSize(fitted.pixelSize() - 1);
        shown_ = QFontMetrics(fitted).elidedText(shown_, Qt::ElideMiddle, width);
    }
    setFont(fitted);
    update();
}

void Label::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    int flags = static_cast<int>(alignment());
    if (look_.wraps) flags |= Qt::TextWordWrap;
    painter.drawText(rect(), flags, shown_);
}

void Label::mousePressEvent(QMouseEvent* event) { event->accept(); }

LabelButton::LabelButton(QWidget* parent, const ElementLook& look, const char* text, QColor face)
    : QAbstractButton(parent), face_(face) {
    setText(QString::fromUtf8(text));
    setFont(brusbo::font(Font::regular));
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
    setFont(brusbo::font(text_font));
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

NameBox::NameBox(QWidget* parent, const ElementLook& look, const char* text) : QLineEdit(parent) {
    setFont(brusbo::font(Font::regular));
    setText(QString::fromUtf8(text));
    setValidator(new NameLength(this));
    set_up(*this, look);
}

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
