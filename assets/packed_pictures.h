// What pack_pictures makes of assets/pictures/ and assets/masters/ at build time.
#pragma once

#include <cstddef>
#include <cstdint>

namespace brusbo {

struct PackedPicture {
    const std::uint32_t* pixels;  // premultiplied 0xAARRGGBB, row by row without padding
    const char* master;           // text of the SVG master that shows the picture
    std::size_t master_length;    // bytes
};

// One for each entry of picture_list, in its order.
extern const PackedPicture packed_pictures[];

struct PackedIcon {
    const std::uint32_t* pixels;  // as above
    int side;
};

// One for each size of icon_sides, in its order.
extern const PackedIcon packed_icons[];

}  // namespace brusbo
