#include "platform/fonts.h"

#include <QFontMetrics>
#include <QRect>
#include <QStringList>

namespace brusbo {

QFont window_font(Font which) {
    const int pixels = which == Font::heading_bold                         ? 24
                       : which == Font::large || which == Font::large_bold ? 13
                                                                           : 11;
    // The second has the measures of the first.
    QFont result(QStringList{QStringLiteral("Liberation Sans"), QStringLiteral("Arial")});
    result.setStyleHint(QFont::SansSerif);
    result.setPixelSize(pixels);
    result.setBold(which == Font::bold || which == Font::large_bold || which == Font::heading_bold);
    return result;
}

QFont fitted(Font which, const QString& text, QSize box, bool wraps) {
    constexpr int smallest = 8;     // pixels
    constexpr int endless = 10000;  // pixels
    QFont result = window_font(which);
    // A blank at the end needs no room.
    const QString needing_room = text.trimmed();
    for (; result.pixelSize() > smallest; result.setPixelSize(result.pixelSize() - 1)) {
        const QRect room(0, 0, wraps ? box.width() : endless, endless);
        const QSize needed = QFontMetrics(result)
                                 .boundingRect(room, wraps ? Qt::TextWordWrap : 0, needing_room)
                                 .size();
        if (needed.width() <= box.width() && (!wraps || needed.height() <= box.height())) break;
    }
    return result;
}

}  // namespace brusbo
