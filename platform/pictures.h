// The program's pictures, ready to be painted at any scale of the display.
#pragma once

#include <QIcon>
#include <QImage>
#include <QPoint>
#include <QSize>

#include "assets/picture_list.h"

class QPainter;

namespace brusbo {

/// In device-independent pixels.
QSize picture_size(Picture picture);

/// Paints the picture with its top left corner at `at` (logical coordinates of the painter, which
/// may be moved and scaled alike in both directions, not turned). Where one logical pixel is one
/// device pixel the stored 1:1 picture is copied; elsewhere the vector master is rendered for the
/// painter's scale and for the fraction of a device pixel at which it lands, so pictures keep their
/// exact places relative to each other and nothing is interpolated. Renderings are kept. GUI
/// thread only.
void paint_picture(QPainter& painter, Picture picture, QPoint at);

/// The picture for `ratio` device pixels to the logical one, with that device pixel ratio set.
QImage picture_image(Picture picture, double ratio = 1.0);

/// The program's icon, for every window.
QIcon program_icon();

}  // namespace brusbo
