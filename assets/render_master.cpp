#include "assets/render_master.h"

#include <QPainter>
#include <cmath>

namespace brusbo {

QImage render_master(const QPicture& master, QRect region, double ratio, QPointF phase) {
    const QRectF covered(phase, QSizeF(region.size()) * ratio);
    // A hair less than the next whole pixel, so that rounding noise does not add an empty column.
    QImage image(static_cast<int>(std::ceil(covered.right() - 1e-6)),
                 static_cast<int>(std::ceil(covered.bottom() - 1e-6)),
                 QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.save();
    painter.translate(phase);
    painter.scale(ratio, ratio);
    painter.drawPicture(-region.topLeft(), master);
    painter.restore();
    // What lies beside the region on the master must not shine into the partly covered pixels.
    QImage shape(image.size(), image.format());
    shape.fill(Qt::transparent);
    QPainter shaping(&shape);
    shaping.setRenderHint(QPainter::Antialiasing);
    shaping.fillRect(covered, Qt::black);
    shaping.end();
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawImage(0, 0, shape);
    painter.end();
    return image;
}

}  // namespace brusbo
