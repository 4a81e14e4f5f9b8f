// What the tests of pictures and sounds share.
#pragma once

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <algorithm>
#include <cmath>
#include <vector>

#include "assets/picture_list.h"
#include "platform/pictures.h"

namespace brusbo::test {

inline const QString assets = BRUSBO_ASSETS;

// Where the file cannot be read the test has failed.
inline QByteArray bytes_of(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

inline QImage committed(const PictureEntry& entry) {
    return QImage(assets + "/pictures/" + entry.name).convertToFormat(QImage::Format_ARGB32);
}

inline std::vector<QPoint> points(QRect part) {
    std::vector<QPoint> all;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x) all.emplace_back(x, y);
    return all;
}

}  // namespace brusbo::test
