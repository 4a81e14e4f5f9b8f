#include "platform/label.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>

namespace brusbo {

Label::Label(QWidget* parent, const ElementLook& element, const Look& look, const char* text)
    : QLabel(parent), look_(look), accessible_(element.accessible) {
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
    const QSize box(look_.text_width > 0 ? look_.text_width : width(), height());
    setFont(fitted(look_.font, text, box, look_.wraps));
    shown_ =
        look_.wraps ? text : QFontMetrics(font()).elidedText(text, Qt::ElideMiddle, box.width());
    update();
}

void Label::set_colour(QColor colour) {
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, colour);
    setPalette(colours);
}

void Label::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    int flags = static_cast<int>(alignment());
    if (look_.wraps) flags |= Qt::TextWordWrap;
    // A single line in a smaller size keeps the baseline of the full one.
    const int full = QFontMetrics(window_font(look_.font)).ascent();
    const int lower = look_.wraps ? 0 : full - QFontMetrics(font()).ascent();
    painter.drawText(rect().translated(0, lower), flags, shown_);
}

void Label::mousePressEvent(QMouseEvent* event) { event->accept(); }

}  // namespace brusbo
