// What people see and hear of the committed pictures and sounds, beside what their sources give.

#include <gtest/gtest.h>

#include <QMatrix4x4>
#include <QPainter>
#include <fstream>

#include "engine/positions.h"
#include "engine/state.h"
#include "platform/pictures.h"

namespace brusbo {

// The root of the mean square over all channels; the formats are alike.
double difference(const QImage& a, const QImage& b) {
    double sum = a.size() == b.size() ? 0 : 1e9;
    for (qsizetype i = 0; sum < 1e9 && i < a.sizeInBytes(); ++i)
        sum += (a.constBits()[i] - b.constBits()[i]) * (a.constBits()[i] - b.constBits()[i]);
    return std::sqrt(sum / static_cast<double>(a.sizeInBytes()));
}

// Beside what the master gives, and one device pixel off as well. Releases of Qt and of ImageMagick
// round edges and palettes a little differently.
TEST(Pictures, FitTheirMastersBestWhereTheyArePaintedAtEveryScale) {
    for (Picture shown{0}; shown.index < picture_list.size(); ++shown.index) {
        QImage wanted(picture_size(shown) / 4 * 4 + QSize(12, 12),
                      QImage::Format_ARGB32_Premultiplied);
        wanted.fill(0);
        const QString made = QString(BRUSBO_MADE "pictures/") + picture_list[shown.index].name;
        QPainter(&wanted).drawImage(5, 6, QImage(made));
        for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
            QImage canvas(wanted.size() * scale, wanted.format());
            canvas.fill(0);
            QPainter painter(&canvas);
            painter.scale(scale, scale);
            paint_picture(painter, shown, {5, 6});
            const auto misfit = [&](int right, int down) {
                const QImage moved = canvas.copy({{right, down}, canvas.size()});
                return difference(wanted,
                                  moved.scaled(wanted.size(), {}, Qt::SmoothTransformation));
            };
            EXPECT_LT(misfit(0, 0), scale == 1 ? 2 : 1000) << qPrintable(made);
            for (const int one : {-1, 1})
                EXPECT_LT(misfit(0, 0), std::min(misfit(one, 0), misfit(0, one)))
                    << qPrintable(made) << scale;
        }
    }
}

TEST(Icons, AreWhatTheirMasterGives) {
    for (const int side : all_icon_sides) {
        const QString name = QString("icon/brusbo-%1.png").arg(side);
        EXPECT_LT(difference(QImage(BRUSBO_ASSETS + name), QImage(BRUSBO_MADE + name)), 2) << side;
    }
}

TEST(Sounds, AreShortAndEndInSilence) {
    for (const char* name : {"s1.wav", "s2.wav", "s3.wav"}) {
        std::ifstream file(std::string(BRUSBO_ASSETS "data/") + name);
        const std::string bytes(std::istreambuf_iterator<char>(file), {});
        EXPECT_TRUE(bytes.size() < 106000 && bytes.ends_with(std::string(264, '\0'))) << name;
    }
}

TEST(Board, HolesLieUnderThePieces) {
    std::ifstream file(BRUSBO_ASSETS "data/brs.dat");
    read_positions(file);
    const QImage board = picture_image(picture("board"), 4);
    for (int i = 0; i < 4 * 45; ++i) {
        const auto& place = Positioner[i / 45 + 1];
        const QPoint centre(4 * place[axis_x][i % 45 + 1] + 52, 4 * place[axis_y][i % 45 + 1] + 52);
        const auto reach = [&](int right, int down) {
            int steps = 0;
            while (steps < 100 && board.pixel(centre + steps * QPoint(right, down)) != 0xFFC89664)
                ++steps;
            return steps;
        };
        EXPECT_TRUE(reach(1, 0) > 54 && std::abs(reach(1, 0) - reach(-1, 0)) < 3) << centre.x();
        EXPECT_TRUE(reach(0, 1) > 54 && std::abs(reach(0, 1) - reach(0, -1)) < 3) << centre.y();
    }
}

TEST(Counters, AreToldApartByPeopleWhoLackOneKindOfCone) {
    constexpr float kinds[][9] = {
        {0.152F, 1.053F, -0.205F, 0.115F, 0.786F, 0.099F, -0.004F, -0.048F, 1.052F},
        {0.367F, 0.861F, -0.228F, 0.280F, 0.673F, 0.047F, -0.012F, 0.043F, 0.969F},
        {1.256F, -0.077F, -0.179F, -0.078F, 0.931F, 0.148F, 0.005F, 0.691F, 0.304F}};
    for (const auto& kind : kinds) {
        std::vector<QVector3D> seen;
        for (int player = 0; player < 4; ++player) {
            const QImage counter = picture_image(nth(picture("piece-1"), player));
            const QColor mean = counter.scaled(1, 1, {}, Qt::SmoothTransformation).pixelColor(0, 0);
            const QVector3D c(mean.redF(), mean.greenF(), mean.blueF());
            const QVector3D mine = QMatrix4x4(kind, 3, 3).map(c * c);
            for (const QVector3D& other : seen) EXPECT_GT(mine.distanceToPoint(other), 0.15);
            seen.push_back(mine);
        }
    }
}

}  // namespace brusbo
