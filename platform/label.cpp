#include "platform/label.h"

#include <QFontMetrics>
#include <QGraphicsEffect>
#include <QMouseEvent>
#include <QPainter>
#include <utility>

namespace brusbo {

/// What sets bright letters off from a ground that is hardly darker: a translucent dark around
/// them. As an effect it may reach beyond the label's box, to which some letters come close.
class Label::Halo : public QGraphicsEffect {
   public:
    explicit Halo(const Label& label) : label_(label) {}

    QRectF boundingRectFor(const QRectF& box) const override {
        return box.adjusted(-reach, -reach, reach, reach);
    }

   protected:
    void draw(QPainter* painter) override {
        const QRect area = boundingRectFor(label_.rect()).toRect();
        QImage shade(area.size(), QImage::Format_ARGB32_Premultiplied);
        shade.fill(Qt::transparent);
        QPainter brush(&shade);
        brush.translate(-area.topLeft());
        // Where copies of the text overlap, the latest alone counts.
        brush.setCompositionMode(QPainter::CompositionMode_Source);
        for (const auto& [square_of_radius, opacity] : {std::pair(8, 48), {5, 76}, {2, 102}})
            for (int x = -reach; x <= reach; ++x)
                for (int y = -reach; y <= reach; ++y)
                    if (x * x + y * y <= square_of_radius)
                        label_.paint_text(brush, QColor(0, 0, 0, opacity), {x, y});
        painter->setRenderHint(QPainter::SmoothPixmapTransform);
        painter->drawImage(area.topLeft(), shade);
        drawSource(painter);
    }

   private:
    static constexpr int reach = 2;  // pixels

    const Label& label_;
};

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
    setGraphicsEffect(qGray(colour.rgb()) > 127 ? new Halo(*this) : nullptr);
}

void Label::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paint_text(painter, palette().color(QPalette::WindowText), {0, 0});
}

void Label::paint_text(QPainter& painter, QColor colour, QPoint aside) const {
    painter.setFont(font());
    painter.setPen(colour);
    int flags = static_cast<int>(alignment());
    if (look_.wraps) flags |= Qt::TextWordWrap;
    // A single line in a smaller size keeps the baseline of the full one.
    const int full = QFontMetrics(window_font(look_.font)).ascent();
    const int lower = look_.wraps ? 0 : full - QFontMetrics(font()).ascent();
    painter.drawText(rect().translated(aside.x(), aside.y() + lower), flags, shown_);
}

void Label::mousePressEvent(QMouseEvent* event) { event->accept(); }

}  // namespace brusbo
