#include "platform/pictures.h"

#include <QPainter>
#include <cmath>
#include <map>
#include <tuple>

#include "assets/packed_pictures.h"
#include "assets/render_master.h"

namespace brusbo {

namespace {

// Positions are told apart to this fraction of a device pixel.
constexpr int phase_steps = 64;
// More than any scale of a display needs; scales with many different phases must not fill memory.
constexpr std::size_t most_renderings_kept = 512;

struct Rendering {
    Picture picture;
    double ratio;
    int phase_x;  // in 1 / phase_steps device pixels
    int phase_y;

    auto key() const { return std::tie(picture.index, ratio, phase_x, phase_y); }
    bool operator<(const Rendering& other) const { return key() < other.key(); }
};

const PictureEntry& entry(Picture picture) { return picture_list[picture.index]; }

const PackedPicture& packed(Picture picture) { return packed_pictures[picture.index]; }

// The stored pixels themselves, not a copy; they live as long as the program.
QImage stored(Picture picture) {
    const PictureEntry& e = entry(picture);
    return QImage(reinterpret_cast<const uchar*>(packed(picture).pixels), e.width, e.height,
                  e.width * static_cast<int>(sizeof(std::uint32_t)),
                  e.opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
}

QImage render(const Rendering& wanted) {
    const PictureEntry& e = entry(wanted.picture);
    const PackedPicture& source = packed(wanted.picture);
    const QByteArray master =
        QByteArray::fromRawData(source.master, static_cast<qsizetype>(source.master_length));
    const QPointF phase(wanted.phase_x / double(phase_steps), wanted.phase_y / double(phase_steps));
    QImage rendered =
        render_master(master, QRect(e.x, e.y, e.width, e.height), wanted.ratio, phase);
    if (rendered.isNull()) {
        const QSizeF scaled = QSizeF(e.width, e.height) * wanted.ratio;
        rendered = stored(wanted.picture)
                       .scaled(QSize(qRound(scaled.width()), qRound(scaled.height())),
                               Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    return rendered;
}

QImage kept_rendering(const Rendering& wanted) {
    static std::map<Rendering, QImage> kept;
    if (const auto found = kept.find(wanted); found != kept.end()) return found->second;
    if (kept.size() >= most_renderings_kept) kept.clear();
    return kept.emplace(wanted, render(wanted)).first->second;
}

// Splits a device coordinate into a whole pixel and the phase within it.
std::pair<int, int> whole_and_phase(double position) {
    const auto steps = static_cast<long>(std::floor(position * phase_steps + 0.5));
    const auto whole = static_cast<long>(std::floor(double(steps) / phase_steps));
    return {static_cast<int>(whole), static_cast<int>(steps - whole * phase_steps)};
}

}  // namespace

QSize picture_size(Picture picture) { return {entry(picture).width, entry(picture).height}; }

void paint_picture(QPainter& painter, Picture picture, QPoint at) {
    const QTransform& device = painter.deviceTransform();
    if (device.type() <= QTransform::TxTranslate) {
        const QPointF place = device.map(QPointF(at));
        if (place == place.toPoint()) {
            painter.drawImage(at, stored(picture));
            return;
        }
    }
    const bool upright_and_uniform = device.type() <= QTransform::TxScale && device.m11() > 0 &&
                                     qFuzzyCompare(device.m11(), device.m22());
    if (!upright_and_uniform) {
        painter.drawImage(QRectF(at, QSizeF(picture_size(picture))), stored(picture));
        return;
    }
    const QPointF place = device.map(QPointF(at));
    const auto [x, phase_x] = whole_and_phase(place.x());
    const auto [y, phase_y] = whole_and_phase(place.y());
    const QImage rendered = kept_rendering({picture, device.m11(), phase_x, phase_y});
    painter.save();
    // From here on logical coordinates are device pixels: the rendering is copied, never resampled.
    painter.setWorldTransform(device.inverted() * painter.worldTransform());
    painter.drawImage(QPoint(x, y), rendered);
    painter.restore();
}

QImage picture_image(Picture picture, double ratio) {
    if (qFuzzyCompare(ratio, 1.0)) return stored(picture);
    QImage rendered = kept_rendering({picture, ratio, 0, 0});
    rendered.setDevicePixelRatio(ratio);
    return rendered;
}

QIcon program_icon() {
    QIcon icon;
    for (std::size_t i = 0; i < icon_sides.size(); ++i) {
        const PackedIcon& source = packed_icons[i];
        icon.addPixmap(
            QPixmap::fromImage(QImage(reinterpret_cast<const uchar*>(source.pixels), source.side,
                                      source.side, QImage::Format_ARGB32_Premultiplied)));
    }
    return icon;
}

}  // namespace brusbo
