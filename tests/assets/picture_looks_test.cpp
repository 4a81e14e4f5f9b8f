// What a player must be able to see: holes where the pieces go, text on the panel, four colours.

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "platform/pictures.h"

namespace {

using brusbo::Picture;
using Channels = std::array<double, 3>;

constexpr QRgb ground = qRgb(200, 150, 100);

// The number texts of the positions file: records of 128 bytes, each a length and the text.
std::vector<int> positions() {
    QFile file(QStringLiteral(BRUSBO_ASSETS "/data/brs.dat"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    std::vector<int> numbers;
    for (qsizetype at = 0; at + 2 < bytes.size(); at += 128) {
        numbers.push_back(bytes.mid(at + 2, bytes.at(at)).trimmed().toInt());
    }
    return numbers;
}

struct Disc {
    QPointF centre;  // of the board, in its pixels
    double diameter;
};

// Walks from the point to the ground in the four directions.
Disc measured(const QImage& board, double scale, QPointF from) {
    const auto reach = [&](int dx, int dy) {
        QPoint at(static_cast<int>(from.x() * scale), static_cast<int>(from.y() * scale));
        int steps = 0;
        while (board.valid(at) && board.pixel(at) != (ground | 0xFF000000U)) {
            at += QPoint(dx, dy);
            ++steps;
        }
        return dx + dy > 0 ? steps : steps - 1;  // the start pixel belongs to one side only
    };
    const double left = reach(-1, 0);
    const double right = reach(1, 0);
    const double top = reach(0, -1);
    const double bottom = reach(0, 1);
    EXPECT_NEAR(left + right, top + bottom, 2.01) << "not round";
    return {from + QPointF(right - left, bottom - top) / (2 * scale), (left + right) / scale};
}

struct Place {
    const char* what;
    QPointF centre;
    double diameter;
};

// Every disc of the board, the squares from the positions file.
std::vector<Place> all_places() {
    const std::vector<int> n = positions();
    std::vector<Place> places;
    if (n.size() < 113) {
        ADD_FAILURE() << "only " << n.size() << " positions";
        return places;
    }
    const auto piece_centre = [](int left, int top) { return QPointF(left + 13, top + 13); };
    for (std::size_t square = 1; square <= 56; ++square) {
        const bool tip = square <= 40 && square % 10 == 0;
        places.push_back(
            {tip ? "tip" : "hole", piece_centre(n[square - 1], n[square + 56]), tip ? 32.0 : 28.0});
    }
    places.push_back({"goal", piece_centre(n[56], n[56]), 34});
    for (const QPointF nest :
         {QPointF(69.5, 69.5), QPointF(307.5, 69.5), QPointF(307.5, 307.5), QPointF(69.5, 307.5)}) {
        places.push_back({"nest", nest, 118});
    }
    return places;
}

TEST(Board, HolesLieWhereThePositionsFilePutsThePieces) {
    const std::vector<Place> places = all_places();
    ASSERT_EQ(places.size(), 61U);
    for (const double scale : {1.0, 4.0}) {
        const QImage board = brusbo::image(Picture::board, scale);
        for (const Place& place : places) {
            const Disc disc = measured(board, scale, place.centre);
            const double half_pixel = 0.5 / scale + 0.01;
            EXPECT_NEAR(disc.centre.x(), place.centre.x(), half_pixel) << place.what;
            EXPECT_NEAR(disc.centre.y(), place.centre.y(), half_pixel) << place.what;
            // A soft edge pixel on either side may already have the colour of the ground.
            EXPECT_NEAR(disc.diameter, place.diameter, 2 / scale + 0.01)
                << place.what << ' ' << place.centre.x() << ',' << place.centre.y();
        }
    }
}

TEST(Board, GroundIsOneFlatColour) {
    const QImage board = brusbo::image(Picture::board);
    const std::vector<Place> places = all_places();
    for (int y = 0; y < board.height(); ++y) {
        for (int x = 0; x < board.width(); ++x) {
            const QPointF pixel(x + 0.5, y + 0.5);
            const bool on_ground = std::all_of(places.begin(), places.end(), [&](const Place& p) {
                const QPointF way = pixel - p.centre;
                return std::hypot(way.x(), way.y()) > p.diameter / 2 + 1;
            });
            if (on_ground) {
                ASSERT_EQ(board.pixel(x, y), ground) << x << ',' << y;
            }
        }
    }
}

double linear(int channel) {
    const double value = channel / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

Channels linear(QRgb c) { return {linear(qRed(c)), linear(qGreen(c)), linear(qBlue(c))}; }

double luminance(const Channels& c) { return 0.2126 * c[0] + 0.7152 * c[1] + 0.0722 * c[2]; }

double contrast(const Channels& a, const Channels& b) {
    const double x = luminance(a);
    const double y = luminance(b);
    return (std::max(x, y) + 0.05) / (std::min(x, y) + 0.05);
}

Channels mean(const QImage& picture, QRect part) {
    Channels sum{};
    double count = 0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            if (qAlpha(pixel) != 0) {
                const Channels c = linear(pixel);
                for (std::size_t i = 0; i < 3; ++i) {
                    sum[i] += c[i];
                }
                ++count;
            }
        }
    }
    for (double& channel : sum) {
        channel /= count;
    }
    return sum;
}

struct Lettering {
    const char* what;
    Picture ground;
    QRect place;
    QRgb ink;
    double least_contrast;
    bool everywhere;  // at every single pixel, not only on the whole
};

TEST(Panel, LettersAreReadableOnTheWood) {
    constexpr QRgb black = qRgb(0, 0, 0);
    constexpr QRgb white = qRgb(255, 255, 255);
    constexpr QRgb yellow = qRgb(255, 255, 0);
    const Lettering letterings[] = {
        {"message line", Picture::side_panel, {28, 204, 131, 101}, black, 4.5, true},
        {"whose turn", Picture::side_panel, {26, 90, 149, 19}, black, 4.5, true},
        {"web address", Picture::title_bar, {118, 10, 225, 15}, qRgb(0, 0, 128), 4.5, false},
        // Bold on middle brown: what the given inks can reach while the wood stays light.
        {"finished count", Picture::title_bar, {344, 10, 169, 17}, white, 3, false},
        {"credits", Picture::side_panel, {18, 104, 149, 180}, yellow, 3, false},
    };
    for (const Lettering& row : letterings) {
        const QImage wood = brusbo::image(row.ground);
        EXPECT_GE(contrast(linear(row.ink), mean(wood, row.place)), row.least_contrast) << row.what;
        for (int y = row.place.top(); y <= row.place.bottom() && row.everywhere; ++y) {
            for (int x = row.place.left(); x <= row.place.right(); ++x) {
                ASSERT_GE(contrast(linear(row.ink), linear(wood.pixel(x, y))), row.least_contrast)
                    << row.what << ' ' << x << ',' << y;
            }
        }
    }
}

struct Lab {
    double lightness, a, b;
};

Lab lab(const Channels& c) {
    const auto f = [](double t) { return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116; };
    const double x = f((0.4124 * c[0] + 0.3576 * c[1] + 0.1805 * c[2]) / 0.9505);
    const double y = f(luminance(c));
    const double z = f((0.0193 * c[0] + 0.1192 * c[1] + 0.9505 * c[2]) / 1.089);
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

struct Eyes {
    const char* whose;
    std::array<Channels, 3> matrix;  // of linear red, green and blue
};

// The usual simulation matrices for complete absence of one kind of cone.
const Eyes all_eyes[] = {
    {"trichromat", {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}},
    {"protanope",
     {{{0.152286, 1.052583, -0.204868},
       {0.114503, 0.786281, 0.099216},
       {-0.003882, -0.048116, 1.051998}}}},
    {"deuteranope",
     {{{0.367322, 0.860646, -0.227968},
       {0.280085, 0.672501, 0.047413},
       {-0.011820, 0.042940, 0.968881}}}},
    {"tritanope",
     {{{1.255528, -0.076749, -0.178779},
       {-0.078411, 0.930809, 0.147602},
       {0.004733, 0.691367, 0.303900}}}},
};

Lab seen(const Eyes& eyes, const Channels& c) {
    Channels result{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            result[i] += eyes.matrix[i][j] * c[j];
        }
        result[i] = std::clamp(result[i], 0.0, 1.0);
    }
    return lab(result);
}

TEST(Counters, TellApartForEveryKindOfEyes) {
    for (const Eyes& eyes : all_eyes) {
        for (int p = 0; p < 4; ++p) {
            for (int q = 0; q < p; ++q) {
                const auto look = [&](int player) {
                    return seen(eyes, mean(brusbo::image(nth(Picture::piece_1, player)),
                                           QRect(0, 0, 26, 26)));
                };
                const Lab a = look(p);
                const Lab b = look(q);
                const double apart = std::hypot(a.lightness - b.lightness, a.a - b.a, a.b - b.b);
                EXPECT_GT(apart, 15) << eyes.whose << ": players " << q + 1 << " and " << p + 1;
            }
        }
    }
}

// From dark to light blue, red, green, yellow, so that no two rely on hue alone.
TEST(Counters, DifferInLightness) {
    const auto lightness = [](int player) {
        return lab(mean(brusbo::image(nth(Picture::piece_1, player)), QRect(0, 0, 26, 26)))
            .lightness;
    };
    EXPECT_GT(lightness(0), lightness(1) + 3);
    EXPECT_GT(lightness(2), lightness(0) + 15);
    EXPECT_GT(lightness(3), lightness(2) + 8);
}

TEST(Counters, MotifsAreDifferentShapes) {
    // Where the face is lighter than it is on average, in the middle of each counter.
    const auto relief = [](int player) {
        const QImage counter = brusbo::image(nth(Picture::piece_1, player), 4);
        const QRect face(32, 32, 40, 40);
        const double average = luminance(mean(counter, face));
        std::vector<bool> light;
        for (int y = face.top(); y <= face.bottom(); ++y) {
            for (int x = face.left(); x <= face.right(); ++x) {
                light.push_back(luminance(linear(counter.pixel(x, y))) > average);
            }
        }
        return light;
    };
    for (int p = 0; p < 4; ++p) {
        for (int q = 0; q < p; ++q) {
            const std::vector<bool> a = relief(p);
            const std::vector<bool> b = relief(q);
            int differing = 0;
            for (std::size_t i = 0; i < a.size(); ++i) {
                differing += a[i] != b[i] ? 1 : 0;
            }
            EXPECT_GT(differing, 200) << "players " << q + 1 << " and " << p + 1;
        }
    }
}

}  // namespace
