// Painting the pictures at every scale of the display.

#include <QCoreApplication>
#include <QImageReader>
#include <QPainter>

#include "assets/render_master.h"
#include "tests/assets/pictures.h"

namespace brusbo::test {

constexpr double scales[] = {1, 1.25, 1.5, 2, 3};

QImage canvas(double scale, QSize size) {
    QImage image((QSizeF(size) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    return image;
}

TEST(PictureStore, KnowsTheSizes) {
    const std::pair<Picture, QSize> rows[] = {
        {picture("title-bar"), {567, 32}}, {picture("side-panel"), {189, 378}},
        {picture("board"), {378, 378}},    {picture("separator"), {153, 8}},
        {picture("piece-4"), {26, 26}},    {picture("die-6"), {50, 50}},
        {picture("marker"), {9, 9}},       {picture("arkiv-1"), {41, 20}},
        {picture("om-1"), {39, 20}},       {picture("minimise-1"), {13, 20}},
        {picture("close-1"), {16, 19}},    {picture("banner-4"), {148, 46}}};
    for (const auto& [picture, its_size] : rows) EXPECT_EQ(picture_size(picture), its_size);
}

// The stored pixels at scale one, elsewhere the master's rendering, copied and never resampled.
TEST(PictureStore, PaintsThePixelsThemselves) {
    for (const double scale : scales) {
        for (std::size_t i = 0; i < picture_list.size(); ++i) {
            const PictureEntry& e = picture_list[i];
            const QByteArray master = bytes_of(assets + "/masters/" + e.master);
            const QRect place(e.x, e.y, e.width, e.height);
            const QImage source = scale == 1 ? committed(e) : render_master(master, place, scale);
            QImage expected = canvas(scale, {580, 400});
            expected.setDevicePixelRatio(1);
            QPainter(&expected).drawImage(QPoint(4, 8) * scale, source);
            QImage shown = canvas(scale, {580, 400});
            QPainter painter(&shown);
            painter.translate(1, 2);  // as for a child widget
            const QTransform before = painter.worldTransform();
            paint_picture(painter, nth(picture("title-bar"), static_cast<int>(i)), {3, 6});
            EXPECT_EQ(painter.worldTransform(), before);
            shown.setDevicePixelRatio(1);
            EXPECT_EQ(shown, expected) << e.name << " at " << scale;
            EXPECT_EQ(picture_image(nth(picture("title-bar"), static_cast<int>(i)), scale)
                          .devicePixelRatio(),
                      scale);
        }
    }
}

TEST(PictureStore, PiecesStandAtTheirExactPlaceAtEveryScale) {
    for (const double scale : scales) {
        for (const QPoint at : {QPoint(14, 142), QPoint(15, 143), QPoint(35, 36), QPoint(3, 50)}) {
            QImage shown = canvas(scale, {64, 200});
            QPainter painter(&shown);
            paint_picture(painter, picture("piece-2"), at);
            QPointF sum;  // weighted by coverage
            double weight = 0;
            for (const QPoint pixel : points(shown.rect())) {
                sum += (pixel + QPointF(0.5, 0.5)) * qAlpha(shown.pixel(pixel));
                weight += qAlpha(shown.pixel(pixel));
            }
            const QPointF off = sum / weight - QPointF(at + QPoint(13, 13)) * scale;
            EXPECT_LT(std::hypot(off.x(), off.y()), 0.08) << scale << ' ' << at.x();
        }
    }
}

// Lines of a master that run out over the picture's edge must not show in the pixels there.
TEST(PictureStore, HalfCoveredEdgePixelsAreHalfTransparent) {
    for (std::size_t i = 0; i < picture_list.size(); ++i) {
        const QImage rendering = picture_image(nth(picture("title-bar"), static_cast<int>(i)), 1.3);
        const int last = rendering.width() - 1;
        const double alpha = (picture_list[i].width * 1.3 - last) * 255;
        for (int y = 1; y + 1 < rendering.height() && picture_list[i].opaque; ++y)
            EXPECT_NEAR(qAlpha(rendering.pixel(last, y)), alpha, 4) << picture_list[i].name;
    }
}

// In a process of its own: a plugin that is loaded once stays loaded.
TEST(PictureStoreDeathTest, ScalesTheStoredPicturesWithoutTheSvgPlugin) {
    const auto look = [] {
        QCoreApplication::setLibraryPaths({});
        EXPECT_FALSE(QImageReader::supportedImageFormats().contains("svg"));
        EXPECT_EQ(picture_image(picture("piece-4"), 2).pixelColor(51, 51).alpha(), 0);
        EXPECT_GT(picture_image(picture("piece-4"), 2).pixelColor(26, 30).red(), 180);
        EXPECT_EQ(picture_image(picture("board"), 1.5).pixel(2, 2), qRgb(200, 150, 100));
        std::_Exit(HasFailure() ? 1 : 0);
    };
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(look(), testing::ExitedWithCode(0), "");
}

}  // namespace brusbo::test
