#include "platform/picture_elements.h"

#include <QPainter>

namespace brusbo {

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
    paint_picture(painter, *picture_, {0, 0});
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
        paint_picture(painter, *picture_, {0, 0});
    else
        painter.fillRect(rect(), Qt::black);
}

}  // namespace brusbo
