// The one list of the program's pictures: what each is called, how large it is, which master shows
// it and where on that master it lies. The program, the tools and the tests all read this list.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace brusbo {

/// Coordinates and sizes are device-independent pixels; one unit of a master is one such pixel.
struct PictureEntry {
    const char* name;  ///< file in assets/pictures/, with its ending
    int width;
    int height;
    const char* master;  ///< file in assets/masters/
    int x;               ///< top left corner of the picture on its master
    int y;
    bool opaque;          ///< no pixel of the picture is transparent
    std::uint32_t matte;  ///< 0xRRGGBB that the soft edge is mixed with at scale 1
};

inline constexpr std::uint32_t dark_wood_matte = 0x1E1006;
inline constexpr std::uint32_t panel_matte = 0xB2804E;

/// Families stand together, each in the order of players, of eyes, or normal before lit.
inline constexpr std::array picture_list{
    PictureEntry{"title-bar.gif", 567, 32, "title-bar.svg", 0, 0, true, 0},
    PictureEntry{"side-panel.gif", 189, 378, "side-panel.svg", 0, 0, true, 0},
    PictureEntry{"board.bmp", 378, 378, "board.svg", 0, 0, true, 0},
    PictureEntry{"separator.gif", 153, 8, "separator.svg", 0, 0, true, 0},
    PictureEntry{"piece-1.gif", 26, 26, "pieces.svg", 0, 0, false, 0x5A0A0C},
    PictureEntry{"piece-2.gif", 26, 26, "pieces.svg", 40, 0, false, 0x101E58},
    PictureEntry{"piece-3.gif", 26, 26, "pieces.svg", 80, 0, false, 0x164A20},
    PictureEntry{"piece-4.gif", 26, 26, "pieces.svg", 120, 0, false, 0x5E480E},
    PictureEntry{"die-1.gif", 50, 50, "die.svg", 0, 0, false, panel_matte},
    PictureEntry{"die-2.gif", 50, 50, "die.svg", 60, 0, false, panel_matte},
    PictureEntry{"die-3.gif", 50, 50, "die.svg", 120, 0, false, panel_matte},
    PictureEntry{"die-4.gif", 50, 50, "die.svg", 180, 0, false, panel_matte},
    PictureEntry{"die-5.gif", 50, 50, "die.svg", 240, 0, false, panel_matte},
    PictureEntry{"die-6.gif", 50, 50, "die.svg", 300, 0, false, panel_matte},
    PictureEntry{"marker.gif", 9, 9, "marker.svg", 0, 0, false, dark_wood_matte},
    PictureEntry{"arkiv-0.gif", 41, 20, "buttons.svg", 0, 0, true, 0},
    PictureEntry{"arkiv-1.gif", 41, 20, "buttons.svg", 0, 30, true, 0},
    PictureEntry{"om-0.gif", 39, 20, "buttons.svg", 50, 0, true, 0},
    PictureEntry{"om-1.gif", 39, 20, "buttons.svg", 50, 30, true, 0},
    PictureEntry{"minimise-0.gif", 13, 20, "buttons.svg", 100, 0, true, 0},
    PictureEntry{"minimise-1.gif", 13, 20, "buttons.svg", 100, 30, true, 0},
    PictureEntry{"close-0.gif", 16, 19, "buttons.svg", 120, 0, true, 0},
    PictureEntry{"close-1.gif", 16, 19, "buttons.svg", 120, 30, true, 0},
    PictureEntry{"banner-1.gif", 148, 46, "banners.svg", 0, 0, true, 0},
    PictureEntry{"banner-2.gif", 148, 46, "banners.svg", 0, 60, true, 0},
    PictureEntry{"banner-3.gif", 148, 46, "banners.svg", 0, 120, true, 0},
    PictureEntry{"banner-4.gif", 148, 46, "banners.svg", 0, 180, true, 0},
};

/// The sizes in which the program's icon is kept as pixels (assets/icon/brusbo-SIDE.png), and those
/// of them that the windows carry.
inline constexpr std::array all_icon_sides{16, 32, 48, 64, 128};
inline constexpr std::array icon_sides{16, 32, 48, 64};

/// One picture of the list.
struct Picture {
    std::uint8_t index;  ///< its place in picture_list

    friend bool operator==(Picture, Picture) = default;
};

/// The picture whose file has this name before its ending, as in picture("piece-1"). A name that is
/// not in the list does not compile.
consteval Picture picture(std::string_view name) {
    for (std::size_t index = 0; index < picture_list.size(); ++index) {
        const std::string_view file = picture_list[index].name;
        if (file.substr(0, file.find('.')) == name) return {static_cast<std::uint8_t>(index)};
    }
    throw "no such picture";
}

/// The picture `index` places after `first` in the list, where families stand together; `index`
/// counts from 0 and must stay inside the family.
constexpr Picture nth(Picture first, int index) {
    return {static_cast<std::uint8_t>(first.index + index)};
}

}  // namespace brusbo
