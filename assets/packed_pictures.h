// What pack_pictures makes of the committed pictures and their masters at build time.
#pragma once

#include <cstdint>
#include <span>

namespace brusbo {

struct PackedPicture {
    const std::uint32_t* pixels;  ///< premultiplied 0xAARRGGBB, row by row without padding
    /// The recorded SVG master that shows the picture: the data of a QPicture, by qCompress.
    std::span<const unsigned char> master;
};

/// One for each entry of picture_list, in its order.
extern const PackedPicture packed_pictures[];

/// Pixels as above, for each size of icon_sides, in its order.
extern const std::uint32_t* const packed_icons[];

}  // namespace brusbo
