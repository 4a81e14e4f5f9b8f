#include "platform/layout.h"

namespace brusbo {

QFont window_font(Font which) {
    const int pixels = which == Font::heading_bold                         ? 24
                       : which == Font::large || which == Font::large_bold ? 13
                                                                           : 11;
    QFont result(QStringLiteral("Liberation Sans"));
    result.setStyleHint(QFont::SansSerif);
    result.setPixelSize(pixels);
    result.setBold(which == Font::bold || which == Font::large_bold || which == Font::heading_bold);
    return result;
}

}  // namespace brusbo
