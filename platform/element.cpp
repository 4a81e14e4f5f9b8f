#include "platform/element.h"

#include <cmath>

namespace brusbo {

QRect Place::pixels() const {
    return {static_cast<int>(std::ceil(left - 0.5)), static_cast<int>(std::ceil(top - 0.5)), width,
            height};
}

QString numbered(const char* array, int index) {
    return QStringLiteral("%1(%2)").arg(QString::fromUtf8(array)).arg(index);
}

void set_up(QWidget& widget, const ElementLook& look) {
    widget.setObjectName(look.name);
    widget.setGeometry(look.place.pixels());
    widget.setAccessibleName(look.accessible);
    widget.setAttribute(Qt::WA_NoMousePropagation);
    widget.setVisible(look.visible);
}

}  // namespace brusbo
