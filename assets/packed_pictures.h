// What pack_pictures makes of the committed pictures and their masters at build time.
#pragma once

#include <cstdint>
#include <string_view>

namespace brusbo {

struct PackedPicture {
    const std::uint32_t* pixels;  ///< premultiplied 0xAARRGGBB, row by row without padding
    std::string_view master;      ///< text of the SVG master that shows the picture
};

/// One for each entry of picture_list, in its order.
extern const PackedPicture packed_pictures[];

/// Pixels as above, for each size of icon_sides, in its order.
extern const std::uint32_t* const packed_icons[];

}  // namespace brusbo
