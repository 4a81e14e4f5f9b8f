#pragma once

#include <cstdint>
#include <string_view>

namespace brusbo {

/// The elements of the main window that the rules write to.
enum class Element : std::uint8_t {
    labVisa_tur,
    labMeddelande,
    labPjäser_klara,
    imgVisa_tur,
    Tärning,
    butEn_pjäs,
    butTvå_pjäser,
    butNästa,
    Pjäs,  ///< array, index 0..15
    Plus,  ///< array, index 0..15
    shpHålbak,
    mnuArkiv,
    mnuOm,
    butMini,
    butAvsluta,
};

/// An element, with its index where the element is an array (`Pjäs`, `Plus`) and 0 elsewhere.
struct ElementId {
    Element element;
    std::int16_t index = 0;

    // A single element needs no index, so its name alone may stand for it.
    constexpr ElementId(Element name) : element(name) {}
    constexpr ElementId(Element name, int number)
        : element(name), index(static_cast<std::int16_t>(number)) {}

    bool operator==(const ElementId&) const = default;
};

/// The picture stores whose pictures the rules give to elements.
enum class Store : std::uint8_t {
    gimgRöd,
    gimgBlå,
    gimgGrön,
    gimgGul,
    T,  ///< die faces, index = face - 1
    gimgPlus,
    gimgArkiv,  ///< the four stores of the picture buttons: 0 normal, 1 mouse over
    gimgOm,
    gimgMinimera,
    GimgAvsluta,
};

/// A picture of a store; the index is 0 in stores of one picture.
struct StorePicture {
    Store store;
    std::int16_t index = 0;

    bool operator==(const StorePicture&) const = default;
};

struct Colour {
    std::uint8_t red, green, blue;

    bool operator==(const Colour&) const = default;
};

/// A place in device-independent pixels; a layout may place an element on a half pixel.
struct LayoutPlace {
    double left, top;
};

/// All that the rules do to the screen. Calls come in the order of the rules' steps, also where
/// they repeat what an element already shows. Nothing returns to the rules from here but the
/// layout's own places: what the rules need to know of an element they keep in their state. No call
/// may run a handler of the rules before it returns.
class Screen {
   public:
    virtual ~Screen() = default;

    /// Replaces a label's text; UTF-8. The view is valid during the call only.
    virtual void set_text(Element label, std::string_view text) = 0;
    virtual void set_visible(ElementId element, bool visible) = 0;
    /// Only the die is ever enabled or disabled.
    virtual void set_enabled(Element element, bool enabled) = 0;
    virtual void set_picture(ElementId element, StorePicture picture) = 0;
    /// Moves a piece, a marker or the turn highlight; pixels from the board's top-left corner.
    /// Any 32-bit values may come from a damaged positions file.
    virtual void move(ElementId element, std::int32_t left, std::int32_t top) = 0;
    /// Moves the die sideways in its panel; twips (15 to the pixel) from the panel's left edge.
    virtual void set_left(Element element, std::int32_t twips) = 0;
    virtual void set_fill_colour(Element shape, Colour colour) = 0;
    /// The hidden text that an element carries.
    virtual void set_tag(Element element, std::string_view text) = 0;
    virtual void set_focus(Element element) = 0;

    /// Where the layout places an element before anything has moved it, in pixels of the board.
    virtual LayoutPlace layout_place(ElementId element) const = 0;
};

}  // namespace brusbo
