#pragma once

#include <QString>
#include <QWidget>

// The elements that the windows are made of. Every one is a child widget whose objectName is its
// element name, keeps mouse presses to itself unless said otherwise, and speaks Swedish to the
// accessibility interface. A window's table lists its elements with what follows.
namespace brusbo {

inline constexpr int twips_per_pixel = 15;

/// Place and size in device-independent pixels from the container's top-left corner; a place may
/// lie on a half pixel.
struct Place {
    double left, top;
    int width, height;

    /// Halves go down, for all elements alike, so that those on half pixels keep their distances.
    QRect pixels() const;
};

/// What all elements have in common.
struct ElementLook {
    QString name;
    Place place;
    QString accessible = {};  ///< accessible name in Swedish
    bool visible = true;
};

/// The name of an element of an array: "Pjäs(3)".
QString numbered(const char* array, int index);

/// Gives a widget its name, place, accessible name and visibility.
void set_up(QWidget& widget, const ElementLook& look);

}  // namespace brusbo
