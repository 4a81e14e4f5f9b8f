// A system without the SVG image plugin still shows every picture.

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QImageReader>

#include "platform/pictures.h"

namespace {

using brusbo::Picture;

TEST(WithoutSvgPlugin, StoredPicturesAreScaled) {
    ASSERT_FALSE(QImageReader::supportedImageFormats().contains("svg"));
    const QImage counter = brusbo::image(Picture::piece_4, 2);
    EXPECT_EQ(counter.size(), QSize(52, 52));
    EXPECT_EQ(qAlpha(counter.pixel(0, 0)), 0);
    const QColor face = counter.pixelColor(26, 30);
    EXPECT_GT(face.red(), 180);
    EXPECT_LT(face.blue(), 150);
    EXPECT_EQ(brusbo::image(Picture::board, 1.5).pixel(2, 2), qRgb(200, 150, 100));
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication::setLibraryPaths({});
    const QCoreApplication application(argc, argv);
    QCoreApplication::setLibraryPaths({});
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
