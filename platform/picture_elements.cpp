#include "platform/picture_elements.h"

#include <QPainter>

#include "platform/buttons.h"

namespace brusbo {

void PictureHolder::set_picture(Picture picture) {
    picture_ = picture;
    element_.update();
}

void PictureHolder::paint(QColor ground) {
    QPainter painter(&element_);
    if (picture_)
        paint_picture(painter, *picture_, {0, 0});
    else
        painter.fillRect(element_.rect(), ground);
}

Image::Image(QWidget* parent, const ElementLook& look, std::optional<Picture> picture)
    : QWidget(parent), PictureHolder(*this, picture) {
    set_up(*this, look);
}

std::vector<Image*> separators(QWidget* parent, const std::vector<QPoint>& places) {
    std::vector<Image*> lines;
    for (const QPoint place : places) {
        const QString name = numbered("imgLinje", static_cast<int>(lines.size()));
        lines.push_back(new Image(
            parent,
            {name, {double(place.x()), double(place.y()), 153, 8}, QStringLiteral("Skiljelinje")},
            picture("separator")));
    }
    return lines;
}

PictureButton::PictureButton(QWidget* parent, const ElementLook& look,
                             std::optional<Picture> picture)
    : QAbstractButton(parent), PictureHolder(*this, picture) {
    setFocusPolicy(Qt::NoFocus);
    set_up(*this, look);
}

void PictureButton::paintEvent(QPaintEvent*) {
    paint(Qt::black);
    if (!shows_focus(*this)) return;
    // To be seen on every picture.
    QPainter painter(this);
    painter.setPen(Qt::white);
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    constexpr int opaque = 255;
    paint_focus(painter, rect(), 0, opaque);
}

}  // namespace brusbo
