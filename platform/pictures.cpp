#include "platform/pictures.h"

#include <QPainter>
#include <cmath>
#include <map>
#include <tuple>

#include "assets/packed_pictures.h"
#include "assets/render_master.h"

namespace brusbo {

namespace {

// Places are told apart to this fraction of a device pixel.
constexpr int phase_steps = 64;
// More than any scale of a display needs; scales with many different phases must not fill memory.
constexpr std::size_t most_renderings_kept = 512;

/// Steps from the corner of a device pixel, each coordinate in [0, phase_steps).
using Phase = std::pair<int, int>;

/// The pixels themselves, not a copy; they live as long as the program.
QImage packed(const std::uint32_t* pixels, QSize size, QImage::Format format) {
    return QImage(reinterpret_cast<const uchar*>(pixels), size.width(), size.height(), format);
}

QImage stored(Picture picture) {
    const bool opaque = picture_list[picture.index].opaque;
    return packed(packed_pictures[picture.index].pixels, picture_size(picture),
                  opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
}

QImage render(Picture picture, double ratio, Phase phase) {
    const PictureEntry& entry = picture_list[picture.index];
    const auto packed_master = packed_pictures[picture.index].master;
    const QByteArray data =
        qUncompress(packed_master.data(), static_cast<qsizetype>(packed_master.size()));
    QPicture master;
    master.setData(data.constData(), static_cast<uint>(data.size()));
    return render_master(master, {QPoint(entry.x, entry.y), picture_size(picture)}, ratio,
                         QPointF(phase.first, phase.second) / phase_steps);
}

QImage image_for(Picture picture, double ratio, Phase phase) {
    if (qFuzzyCompare(ratio, 1.0) && phase == Phase(0, 0)) return stored(picture);
    static std::map<std::tuple<std::uint8_t, double, Phase>, QImage> kept;
    const std::tuple wanted(picture.index, ratio, phase);
    if (const auto found = kept.find(wanted); found != kept.end()) return found->second;
    if (kept.size() >= most_renderings_kept) kept.clear();
    return kept.emplace(wanted, render(picture, ratio, phase)).first->second;
}

}  // namespace

QSize picture_size(Picture picture) {
    return {picture_list[picture.index].width, picture_list[picture.index].height};
}

void paint_picture(QPainter& painter, Picture picture, QPoint at) {
    const QTransform device = painter.deviceTransform();
    const QPointF steps = device.map(QPointF(at)) * phase_steps;
    const auto split = [](double step) {
        const int pixel = static_cast<int>(std::floor((step + 0.5) / phase_steps));
        return std::pair(pixel, static_cast<int>(std::floor(step + 0.5)) - pixel * phase_steps);
    };
    const auto [x, phase_x] = split(steps.x());
    const auto [y, phase_y] = split(steps.y());
    painter.save();
    // From here on logical coordinates are device pixels: the image is copied, never resampled.
    painter.setWorldTransform(device.inverted() * painter.worldTransform());
    painter.drawImage(QPoint(x, y), image_for(picture, device.m11(), {phase_x, phase_y}));
    painter.restore();
}

QImage picture_image(Picture picture, double ratio) {
    QImage image = image_for(picture, ratio, {0, 0});
    image.setDevicePixelRatio(ratio);
    return image;
}

QIcon program_icon() {
    QIcon icon;
    for (std::size_t i = 0; i < icon_sides.size(); ++i)
        icon.addPixmap(
            QPixmap::fromImage(packed(packed_icons[i], QSize(icon_sides[i], icon_sides[i]),
                                      QImage::Format_ARGB32_Premultiplied)));
    return icon;
}

}  // namespace brusbo
