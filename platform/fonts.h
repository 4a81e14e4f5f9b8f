#pragma once

#include <QFont>
#include <QSize>
#include <QString>

namespace brusbo {

/// The fonts of the windows. Their sizes are whole pixels, which every text was fitted with.
enum class Font {
    regular,      ///< 8.25 points
    bold,         ///< 8.25 points
    large,        ///< 9.75 points
    large_bold,   ///< 9.75 points
    heading_bold  ///< 18 points
};

QFont window_font(Font font);

/// The font in the largest size, from its own down to 8 pixels, in which the text fits into the
/// box, broken at blanks if it `wraps`. Where the typeface is at hand that is its own size for all
/// of the game's texts; names of ten wide letters and other typefaces need less.
QFont fitted(Font font, const QString& text, QSize box, bool wraps = false);

}  // namespace brusbo
