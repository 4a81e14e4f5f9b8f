#include "platform/element.h"

namespace brusbo {

void set_up(QWidget& widget, const ElementLook& look) {
    widget.setObjectName(QString::fromUtf8(look.name));
    widget.setGeometry(look.place.pixels());
    widget.setAccessibleName(QString::fromUtf8(look.accessible));
    widget.setAttribute(Qt::WA_NoMousePropagation);
    widget.setVisible(look.visible);
}

}  // namespace brusbo
