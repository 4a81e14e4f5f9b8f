#include "platform/label.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>

namespace brusbo {

Label::Label(QWidget* parent, const ElementLook& element, const Look& look, const char* text)
    : QLabel(parent), look_(look), accessible_(QString::fromUtf8(element.accessible)) {
    setTextFormat(Qt::PlainText);
    setFont(window_font(look.font));
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
    QFont fitted = window_font(look_.font);
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
    // A line in a smaller size keeps the baseline of the full one.
    const int lower =
        QFontMetrics(window_font(look_.font)).ascent() - QFontMetrics(font()).ascent();
    painter.drawText(rect().translated(0, lower), flags, shown_);
}

void Label::mousePressEvent(QMouseEvent* event) { event->accept(); }

}  // namespace brusbo
