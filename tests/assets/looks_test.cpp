// What a player must be able to see: holes where the pieces go, text on the panel, four colours.

#include <QPainter>
#include <array>

#include "tests/assets/pictures.h"

namespace brusbo::test {

// Every disc of the board, the squares from the positions file: number texts in records of 128
// bytes, each a length of two bytes and the text; first all left edges of pieces, then all tops.
std::vector<std::pair<QPointF, double>> centres_and_radii() {
    const QByteArray file = bytes_of(assets + "/data/brs.dat");
    const auto centre = [&](int record) {
        return file.mid(128 * record + 2, file.at(128 * record)).trimmed().toInt() + 13;
    };
    std::vector<std::pair<QPointF, double>> discs{{QPointF(centre(56), centre(56)), 17}};
    for (const double x : {69.5, 307.5})
        for (const double y : {69.5, 307.5}) discs.emplace_back(QPointF(x, y), 59);
    for (int square = 1; square <= 56; ++square) {
        const bool tip = square <= 40 && square % 10 == 0;
        discs.emplace_back(QPointF(centre(square - 1), centre(square + 56)), tip ? 16 : 14);
    }
    return discs;
}

constexpr QRgb ground = qRgb(200, 150, 100);

// Four pixels to the unit: a soft or a displaced edge stands out.
TEST(Board, HolesLieWhereThePositionsFilePutsThePieces) {
    const QImage board = picture_image(picture("board"), 4);
    for (const auto& [centre, radius] : centres_and_radii()) {
        for (const QPoint way : {QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1)}) {
            // Half a pixel from the centre lies the middle of the first one on this way.
            QPointF at = centre * 4 + (QPointF(way) - QPointF(1, 1)) / 2;
            int reach = 0;
            for (; reach < 300 && board.pixel(at.toPoint()) != ground; at += way) ++reach;
            EXPECT_NEAR(reach, radius * 4, 1) << centre.x() << ',' << centre.y();
        }
    }
}

TEST(Board, GroundIsOneFlatColour) {
    QImage board = picture_image(picture("board")).copy();
    QPainter painter(&board);
    painter.setBrush(QColor(ground));
    painter.setPen(Qt::NoPen);
    for (const auto& [centre, radius] : centres_and_radii())
        painter.drawEllipse(centre, radius + 1.5, radius + 1.5);
    for (const QPoint at : points(board.rect()))
        ASSERT_EQ(board.pixel(at), ground) << at.x() << ',' << at.y();
}

using Channels = std::array<double, 3>;

Channels linear(const QColor& colour) {
    const auto channel = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return {channel(colour.redF()), channel(colour.greenF()), channel(colour.blueF())};
}

double luminance(const Channels& c) { return 0.2126 * c[0] + 0.7152 * c[1] + 0.0722 * c[2]; }

TEST(Panel, MessageAndTurnAreReadableOnTheWood) {
    const QImage wood = picture_image(picture("side-panel"));
    for (const QRect label : {QRect(28, 204, 131, 101), QRect(26, 90, 149, 19)})
        for (const QPoint at : points(label))
            ASSERT_GE((luminance(linear(wood.pixel(at))) + 0.05) / 0.05, 4.5) << "to black";
}

// The mean of what is not transparent.
Channels mean(const QImage& picture) {
    double r = 0, g = 0, b = 0, count = 0;
    for (const QPoint at : points(picture.rect())) {
        const double weight = qAlpha(picture.pixel(at)) / 255.0;
        const Channels c = linear(picture.pixel(at));
        r += c[0] * weight, g += c[1] * weight, b += c[2] * weight, count += weight;
    }
    return {r / count, g / count, b / count};
}

// How eyes see linear red, green and blue: lightness, green to red, blue to yellow (CIELAB).
Channels seen(const std::array<double, 9>& eyes, const Channels& colour) {
    Channels c{};
    for (std::size_t i = 0; i < 9; ++i) c[i / 3] += eyes[i] * colour[i % 3];
    for (double& channel : c) channel = std::clamp(channel, 0.0, 1.0);
    const auto f = [](double t) { return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116; };
    const double x = f((0.4124 * c[0] + 0.3576 * c[1] + 0.1805 * c[2]) / 0.9505);
    const double y = f(luminance(c));
    const double z = f((0.0193 * c[0] + 0.1192 * c[1] + 0.9505 * c[2]) / 1.089);
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

constexpr std::pair<int, int> pairs[] = {{0, 1}, {0, 2}, {0, 3}, {1, 2}, {1, 3}, {2, 3}};

TEST(Counters, AreToldApartByEveryKindOfEyes) {
    // The usual matrices for the lack of one kind of cone.
    const std::pair<const char*, std::array<double, 9>> all_eyes[] = {
        {"protanope", {0.152, 1.053, -0.205, 0.115, 0.786, 0.099, -0.004, -0.048, 1.052}},
        {"deuteranope", {0.367, 0.861, -0.228, 0.280, 0.673, 0.047, -0.012, 0.043, 0.969}},
        {"tritanope", {1.256, -0.077, -0.179, -0.078, 0.931, 0.148, 0.005, 0.691, 0.304}},
    };
    for (const auto& [whose, eyes] : all_eyes) {
        for (const auto& [p, q] : pairs) {
            SCOPED_TRACE(testing::Message() << whose << ": " << p + 1 << " and " << q + 1);
            const Channels a = seen(eyes, mean(picture_image(nth(picture("piece-1"), p))));
            const Channels b = seen(eyes, mean(picture_image(nth(picture("piece-1"), q))));
            EXPECT_GT(std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]), 15);
            EXPECT_GT(std::abs(a[0] - b[0]), 3) << "lightness";
        }
    }
}

TEST(Counters, MotifsAreDifferentShapes) {
    // Where the middle of the counter is lighter than it is on average.
    const auto raised = [](int player) {
        const QImage face = picture_image(nth(picture("piece-1"), player), 4).copy(32, 32, 40, 40);
        const double average = luminance(mean(face));
        std::vector<bool> light;
        for (const QPoint at : points(face.rect()))
            light.push_back(luminance(linear(face.pixel(at))) > average);
        return light;
    };
    for (const auto& [p, q] : pairs) {
        int differing = 0;
        const std::vector<bool> a = raised(p);
        const std::vector<bool> b = raised(q);
        for (std::size_t i = 0; i < a.size(); ++i) differing += a[i] != b[i] ? 1 : 0;
        EXPECT_GT(differing, 200) << "players " << p + 1 << " and " << q + 1;
    }
}

}  // namespace brusbo::test
