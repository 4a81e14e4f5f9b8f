#pragma once

#include <QFont>
#include <QRect>
#include <cmath>

namespace brusbo {

/// A row's place and size in device-independent pixels from its container's top-left corner; a
/// place may lie on a half pixel.
struct Place {
    double left, top;
    int width, height;

    /// Halves go down, for all elements alike, so that those on half pixels keep their distances.
    QRect pixels() const {
        return {static_cast<int>(std::ceil(left - 0.5)), static_cast<int>(std::ceil(top - 0.5)),
                width, height};
    }
};

inline constexpr int twips_to_pixel = 15;

/// The fonts of the windows. Their sizes are whole pixels, which every text was fitted with.
enum class Font {
    regular,      ///< 8.25 points
    bold,         ///< 8.25 points
    large,        ///< 9.75 points
    large_bold,   ///< 9.75 points
    heading_bold  ///< 18 points
};

QFont window_font(Font font);

}  // namespace brusbo
