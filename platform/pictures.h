// The program's pictures, ready to be painted at any scale of the display.
#pragma once

#include <QIcon>
#include <QImage>
#include <QPoint>
#include <QSize>
#include <cstdint>

class QPainter;

namespace brusbo {

// Families are consecutive, so nth() can pick their members.
enum class Picture : std::uint8_t {
    title_bar,
    side_panel,
    board,
    separator,
    piece_1,  // red, blue, green, yellow
    piece_2,
    piece_3,
    piece_4,
    die_1,
    die_2,
    die_3,
    die_4,
    die_5,
    die_6,
    marker,
    arkiv_0,  // picture buttons: 0 normal, 1 under the mouse
    arkiv_1,
    om_0,
    om_1,
    minimise_0,
    minimise_1,
    close_0,
    close_1,
    banner_1,  // red, blue, green, yellow
    banner_2,
    banner_3,
    banner_4,
};

// The picture `index` places after `first`; `index` counts from 0 and must stay inside the family.
constexpr Picture nth(Picture first, int index) {
    return static_cast<Picture>(static_cast<int>(first) + index);
}

// In device-independent pixels.
QSize picture_size(Picture picture);

// Paints the picture with its top left corner at `at` (logical coordinates of the painter). Where
// one logical pixel is one device pixel the stored 1:1 picture is copied; elsewhere the vector
// master is rendered for the painter's scale and for the fraction of a device pixel at which it
// lands, so pictures keep their exact places relative to each other and nothing is interpolated.
// Renderings are kept. Without the SVG image plugin the 1:1 picture is scaled smoothly instead.
// GUI thread only.
void paint_picture(QPainter& painter, Picture picture, QPoint at);

// The picture for `ratio` device pixels to the logical one, with that device pixel ratio set.
QImage picture_image(Picture picture, double ratio = 1.0);

// The program's icon, for every window.
QIcon program_icon();

// Forgets the renderings kept by paint_picture().
void clear_picture_cache();

}  // namespace brusbo
