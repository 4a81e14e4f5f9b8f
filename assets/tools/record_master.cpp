#include "assets/tools/record_master.h"

#include <QPainter>
#include <QSvgRenderer>

QPicture record_master(const QString& path) {
    QSvgRenderer drawing(path);
    if (!drawing.isValid()) qFatal("cannot read %s", qPrintable(path));
    QPicture recorded;
    QPainter painter(&recorded);
    drawing.render(&painter, drawing.viewBoxF());
    painter.end();
    return recorded;
}
