#pragma once

#include <QWidget>

#include "platform/layout.h"

// The elements that the windows are made of. Every one is a child widget whose objectName is its
// element name, keeps mouse presses to itself unless said otherwise, and speaks Swedish to the
// accessibility interface.
namespace brusbo {

/// What all elements have in common.
struct ElementLook {
    const char* name;  ///< objectName, UTF-8
    Place place;
    const char* accessible = "";  ///< accessible name in Swedish
    bool visible = true;
};

/// Gives a widget its name, place, accessible name and visibility.
void set_up(QWidget& widget, const ElementLook& look);

}  // namespace brusbo
