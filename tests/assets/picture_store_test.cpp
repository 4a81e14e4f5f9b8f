// Painting the pictures at every scale of the display.

#include "platform/pictures.h"

#include <gtest/gtest.h>

#include <QPainter>
#include <cmath>

#include "assets/picture_list.h"

namespace {

using brusbo::Picture;

constexpr double scales[] = {1, 1.25, 1.5, 1.75, 2, 2.25, 3};

QImage canvas(double scale, QSize size, QColor colour) {
    QImage image((QSizeF(size) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(colour);
    return image;
}

TEST(PictureStore, KnowsTheSizes) {
    for (std::size_t i = 0; i < brusbo::picture_count; ++i) {
        EXPECT_EQ(brusbo::size(static_cast<Picture>(i)),
                  QSize(brusbo::picture_list[i].width, brusbo::picture_list[i].height));
    }
}

TEST(PictureStore, ShowsTheStoredPixelsAtScaleOne) {
    for (std::size_t i = 0; i < brusbo::picture_count; ++i) {
        const auto picture = static_cast<Picture>(i);
        const QString path =
            QStringLiteral(BRUSBO_ASSETS "/pictures/") + brusbo::picture_list[i].name;
        QImage expected = canvas(1, {600, 400}, Qt::magenta);
        QPainter expected_painter(&expected);
        expected_painter.drawImage(5, 7, QImage(path));
        expected_painter.end();
        QImage shown = canvas(1, {600, 400}, Qt::magenta);
        QPainter painter(&shown);
        // The way a child widget is painted: its origin is moved.
        painter.translate(2, 3);
        paint(painter, picture, {3, 4});
        painter.end();
        EXPECT_EQ(shown, expected) << brusbo::picture_list[i].name;
    }
}

// The centre of what is painted, weighted by coverage, in device pixels.
QPointF centre_of_coverage(const QImage& image) {
    QPointF sum;
    double weight = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const int alpha = qAlpha(image.pixel(x, y));
            sum += QPointF(x + 0.5, y + 0.5) * alpha;
            weight += alpha;
        }
    }
    return sum / weight;
}

TEST(PictureStore, PiecesStandAtTheirExactPlaceAtEveryScale) {
    for (const double scale : scales) {
        for (const QPoint at : {QPoint(14, 142), QPoint(15, 143), QPoint(35, 36), QPoint(3, 50)}) {
            QImage shown = canvas(scale, {64, 200}, Qt::transparent);
            QPainter painter(&shown);
            paint(painter, Picture::piece_2, at);
            painter.end();
            const QPointF centre = centre_of_coverage(shown);
            EXPECT_NEAR(centre.x(), (at.x() + 13) * scale, 0.06) << scale;
            EXPECT_NEAR(centre.y(), (at.y() + 13) * scale, 0.06) << scale;
        }
    }
}

// What is painted at a whole device pixel is the rendering itself, not a resampled one.
TEST(PictureStore, RenderingsAreCopiedNotInterpolated) {
    for (const double scale : scales) {
        for (std::size_t i = 0; i < brusbo::picture_count; ++i) {
            const auto picture = static_cast<Picture>(i);
            QImage rendering = brusbo::image(picture, scale);
            EXPECT_EQ(rendering.devicePixelRatio(), scale);
            rendering.setDevicePixelRatio(1);
            QImage expected = canvas(scale, {580, 400}, Qt::magenta);
            expected.setDevicePixelRatio(1);
            QPainter expected_painter(&expected);
            const QPoint device = QPoint(4, 8) * scale;
            expected_painter.drawImage(device, rendering);
            expected_painter.end();
            QImage shown = canvas(scale, {580, 400}, Qt::magenta);
            QPainter painter(&shown);
            paint(painter, picture, {4, 8});
            painter.end();
            shown.setDevicePixelRatio(1);
            EXPECT_EQ(shown, expected) << scale << ' ' << brusbo::picture_list[i].name;
        }
    }
}

TEST(PictureStore, LeavesThePainterAsItWas) {
    QImage image = canvas(1.5, {60, 60}, Qt::white);
    QPainter painter(&image);
    painter.translate(1, 2);
    const QTransform before = painter.worldTransform();
    paint(painter, Picture::piece_1, {3, 3});
    EXPECT_EQ(painter.worldTransform(), before);
}

// Lines of a master that run out over the picture's edge must not show in the pixels there.
TEST(PictureStore, HalfCoveredEdgePixelsAreHalfTransparent) {
    constexpr double scale = 1.3;
    for (std::size_t i = 0; i < brusbo::picture_count; ++i) {
        const brusbo::PictureEntry& entry = brusbo::picture_list[i];
        const QImage rendering = brusbo::image(static_cast<Picture>(i), scale);
        const double covered = entry.width * scale - (rendering.width() - 1);
        for (int y = 1; y + 1 < rendering.height() && entry.opaque; ++y) {
            EXPECT_NEAR(qAlpha(rendering.pixel(rendering.width() - 1, y)), covered * 255, 4)
                << entry.name << " row " << y;
        }
    }
}

TEST(PictureStore, FamiliesAreConsecutive) {
    EXPECT_EQ(nth(Picture::piece_1, 3), Picture::piece_4);
    EXPECT_EQ(nth(Picture::die_1, 5), Picture::die_6);
    EXPECT_EQ(nth(Picture::close_0, 1), Picture::close_1);
    EXPECT_EQ(nth(Picture::banner_1, 3), Picture::banner_4);
}

}  // namespace
