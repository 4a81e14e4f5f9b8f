// The committed pictures beside what their masters give, and what people see of them.

#include <gtest/gtest.h>

#include <QPainter>
#include <fstream>

#include "engine/positions.h"
#include "engine/state.h"
#include "platform/pictures.h"

namespace brusbo {

// The root of the mean square over all channels, 0 to 255.
double difference(QImage a, QImage b) {
    double sum = a.size() == b.size() ? 0 : 1e9;
    for (QImage* image : {&a, &b}) image->convertTo(QImage::Format_ARGB32_Premultiplied);
    for (qsizetype i = 0; sum < 1e9 && i < a.sizeInBytes(); ++i)
        sum += std::pow(a.constBits()[i] - b.constBits()[i], 2);
    return std::sqrt(sum / static_cast<double>(a.sizeInBytes()));
}

// Releases of Qt and of ImageMagick round edges and palettes a little differently.
constexpr double rounding = 3;

TEST(Pictures, FitTheirMastersBestWhereTheyArePaintedAtEveryScale) {
    for (Picture shown{0}; shown.index < picture_list.size(); ++shown.index)
        for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
            const QString name = picture_list[shown.index].name;
            QImage made(picture_size(shown) / 4 * 4 + QSize(12, 12), QImage::Format_ARGB32);
            made.fill(0);
            QPainter(&made).drawImage(5, 6, QImage(BRUSBO_MADE "/pictures/" + name));
            QImage canvas(made.size() * scale, made.format());
            canvas.fill(0);
            QPainter painter(&canvas);
            painter.scale(scale, scale);
            paint_picture(painter, shown, {5, 6});
            const auto off = [&](int right, int down) {
                const QImage moved = canvas.copy({{right, down}, canvas.size()});
                return difference(made, moved.scaled(made.size(), {}, Qt::SmoothTransformation));
            };
            const double beside = std::min({off(1, 0), off(-1, 0), off(0, 1), off(0, -1)});
            EXPECT_LT(off(0, 0), scale == 1 ? rounding : beside) << qPrintable(name) << scale;
        }
}

TEST(Board, HolesLieUnderThePieces) {
    std::ifstream file(BRUSBO_ASSETS "/data/brs.dat");
    read_positions(file);
    const QImage board = picture_image(picture("board"), 4);
    const auto bare = [&](QPoint at) { return board.pixel(at) == qRgb(200, 150, 100); };
    for (int i = 0; i < 4 * 45; ++i) {
        const auto& place = Positioner[i / 45 + 1];
        const QPoint hole(4 * place[axis_x][i % 45 + 1] + 52, 4 * place[axis_y][i % 45 + 1] + 52);
        for (const QPoint way : {QPoint(1, 0), QPoint(0, 1)})
            for (int reach = 54; reach < 64; ++reach)  // from within the hole to beyond its rim
                EXPECT_EQ(bare(hole + reach * way), reach > 54 && bare(hole - (reach + 1) * way));
    }
}

}  // namespace brusbo
