#pragma once

#include <QImage>
#include <QPicture>
#include <QPointF>
#include <QRect>

namespace brusbo {

/// Renders `region` (in units of the master) of a recorded SVG master at `ratio` device pixels to
/// the unit. The region's top left corner comes to lie at `phase` (device pixels, each coordinate
/// in [0, 1)) of the image, which is just large enough to hold the region; pixels that the region
/// covers only in part are transparent to that part. The result is ARGB32 premultiplied at device
/// pixel ratio 1.
QImage render_master(const QPicture& master, QRect region, double ratio, QPointF phase = {});

}  // namespace brusbo
