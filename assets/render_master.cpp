#include "assets/render_master.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <cmath>

namespace brusbo {

QImage render_master(const QByteArray& master, QRect region, double ratio, QPointF phase) {
    const QRectF covered(phase, QSizeF(region.size()) * ratio);
    // A hair less than the next whole pixel, so that rounding noise does not add an empty column.
    const QSize size(static_cast<int>(std::ceil(covered.right() - 1e-6)),
                     static_cast<int>(std::ceil(covered.bottom() - 1e-6)));
    const QPointF corner = QPointF(region.topLeft()) - phase / ratio;
    // In place of the root element's own start tag comes one that shows this part at this size.
    QByteArray text = QString(
                          "<svg xmlns=\"http://www.w3.org/2000/svg\""
                          " xmlns:xlink=\"http://www.w3.org/1999/xlink\""
                          " width=\"%1\" height=\"%2\" viewBox=\"%3 %4 %5 %6\">")
                          .arg(size.width())
                          .arg(size.height())
                          .arg(corner.x(), 0, 'g', 15)
                          .arg(corner.y(), 0, 'g', 15)
                          .arg(size.width() / ratio, 0, 'g', 15)
                          .arg(size.height() / ratio, 0, 'g', 15)
                          .toUtf8();
    text += master.mid(master.indexOf('>', master.indexOf("<svg")) + 1);
    QBuffer buffer(&text);
    const QImage rendered = QImageReader(&buffer, "svg").read();
    if (rendered.isNull()) return {};
    // What lies beside the region on the master must not shine into the partly covered pixels.
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(covered, Qt::black);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.drawImage(0, 0, rendered);
    painter.end();
    return image;
}

}  // namespace brusbo
