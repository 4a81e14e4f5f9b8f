#include "render_master.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <cmath>

namespace brusbo {

namespace {

// Replaces the first start tag of the root element, whatever frame it gives, by one with this
// frame.
QByteArray reframed(const QByteArray& master, QSize device_size, const QRectF& view) {
    const qsizetype begin = master.indexOf("<svg");
    const qsizetype end = master.indexOf('>', begin);
    if (begin < 0 || end < 0) return {};
    const auto number = [](double value) { return QByteArray::number(value, 'g', 15); };
    QByteArray root =
        "<svg xmlns=\"http://www.w3.org/2000/svg\""
        " xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"";
    root += QByteArray::number(device_size.width());
    root += "\" height=\"" + QByteArray::number(device_size.height());
    root += "\" viewBox=\"" + number(view.x()) + ' ' + number(view.y()) + ' ';
    root += number(view.width()) + ' ' + number(view.height()) + "\">";
    return root + master.mid(end + 1);
}

}  // namespace

QImage render_master(const QByteArray& master, QRect region, double ratio, QPointF phase) {
    const QRectF covered(phase, QSizeF(region.size()) * ratio);
    // A hair less than the next whole pixel, so that rounding noise does not add an empty column.
    const QSize device_size(static_cast<int>(std::ceil(covered.right() - 1e-6)),
                            static_cast<int>(std::ceil(covered.bottom() - 1e-6)));
    const QRectF view(QPointF(region.topLeft()) - phase / ratio, QSizeF(device_size) / ratio);
    QByteArray text = reframed(master, device_size, view);
    QBuffer buffer(&text);
    QImageReader reader(&buffer, "svg");
    QImage image = reader.read();
    if (image.isNull()) return {};
    image = std::move(image).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (covered != QRectF(QPointF(0, 0), QSizeF(device_size))) {
        // What lies beside the region on the master must not shine into the partly covered pixels.
        QImage frame(device_size, QImage::Format_ARGB32_Premultiplied);
        frame.fill(Qt::transparent);
        QPainter frame_painter(&frame);
        frame_painter.setRenderHint(QPainter::Antialiasing);
        frame_painter.fillRect(covered, Qt::black);
        frame_painter.end();
        QPainter painter(&image);
        painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        painter.drawImage(0, 0, frame);
    }
    return image;
}

}  // namespace brusbo
