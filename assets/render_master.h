#pragma once

#include <QByteArray>
#include <QImage>
#include <QPointF>
#include <QRect>

namespace brusbo {

/// Renders `region` (in units of the master) of an SVG master at `ratio` device pixels to the unit.
/// The region's top left corner comes to lie at `phase` (device pixels, each coordinate in [0, 1))
/// of the image, which is just large enough to hold the region; pixels that the region covers only
/// in part are transparent to that part. The result is ARGB32 premultiplied at device pixel ratio
/// 1, or a null image if the SVG image plugin is not installed or the master cannot be read.
QImage render_master(const QByteArray& master, QRect region, double ratio, QPointF phase = {});

}  // namespace brusbo
