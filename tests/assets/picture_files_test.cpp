// The committed pictures: right formats, and what the masters give.

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdlib>

#include "assets/picture_list.h"
#include "assets/tools/picture_files.h"

namespace {

using brusbo::picture_list;
using brusbo::PictureEntry;

const QString assets = BRUSBO_ASSETS;

QByteArray bytes_of(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

struct Difference {
    double share = 1;    // of the pixels
    int greatest = 255;  // of one channel of one pixel
};

Difference difference(const QImage& a, const QImage& b) {
    if (a.isNull() || a.size() != b.size()) {
        return {};
    }
    Difference found{0, 0};
    int differing = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            differing += p != q ? 1 : 0;
            for (const int step : {qRed(p) - qRed(q), qGreen(p) - qGreen(q), qBlue(p) - qBlue(q),
                                   qAlpha(p) - qAlpha(q)}) {
                found.greatest = std::max(found.greatest, std::abs(step));
            }
        }
    }
    found.share = double(differing) / (a.width() * a.height());
    return found;
}

// Processors of different makes may round a few edge pixels differently.
bool same_but_for_rounding(const QImage& a, const QImage& b) {
    const Difference found = difference(a, b);
    return found.share <= 0.01 && found.greatest <= 16;
}

TEST(CommittedPictures, AreWhatTheirMastersGive) {
    for (const PictureEntry& entry : picture_list) {
        SCOPED_TRACE(entry.name);
        const QImage made = brusbo::one_to_one_picture(entry, assets + "/masters");
        ASSERT_FALSE(made.isNull()) << "no rendering; is libqt6svg6 installed?";
        const QImage committed(assets + "/pictures/" + entry.name);
        const Difference found = difference(made, committed.convertToFormat(QImage::Format_ARGB32));
        EXPECT_LE(found.share, 0.01) << "run `cmake --build BUILD --target assets`";
        EXPECT_LE(found.greatest, 16);
    }
}

TEST(CommittedPictures, HaveTheirFormatsAndSizes) {
    for (const PictureEntry& entry : picture_list) {
        SCOPED_TRACE(entry.name);
        const QString path = assets + "/pictures/" + entry.name;
        const QImage picture(path);
        EXPECT_EQ(picture.size(), QSize(entry.width, entry.height));
        const QByteArray bytes = bytes_of(path);
        if (path.endsWith(".bmp")) {
            EXPECT_TRUE(bytes.startsWith("BM"));
            EXPECT_EQ(bytes.at(28), 24) << "bits to the pixel";
        } else {
            EXPECT_TRUE(bytes.startsWith("GIF89a"));
        }
        int transparent = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                transparent += qAlpha(picture.pixel(x, y)) == 0 ? 1 : 0;
            }
        }
        EXPECT_EQ(transparent == 0, entry.opaque);
        if (!entry.opaque) {
            const int right = entry.width - 1;
            const int bottom = entry.height - 1;
            for (const QPoint corner : {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom)}) {
                EXPECT_EQ(qAlpha(picture.pixel(corner)), 0) << corner.x() << ',' << corner.y();
            }
        }
    }
}

// The written file, read back by another decoder than the one that wrote it.
TEST(CommittedPictures, SurviveWriting) {
    for (const PictureEntry& entry : picture_list) {
        SCOPED_TRACE(entry.name);
        const QImage made = brusbo::one_to_one_picture(entry, assets + "/masters");
        const QTemporaryDir folder;
        const QString path = folder.filePath(entry.name);
        ASSERT_TRUE(brusbo::write_picture(made, path));
        const Difference found =
            difference(made, QImage(path).convertToFormat(QImage::Format_ARGB32));
        EXPECT_EQ(found.greatest, 0);
    }
}

struct Change {
    const char* what;
    const char* picture;
    const char* before;
    const char* after;
};

// The comparison above is worth something: changes a painter might make do not pass it.
TEST(CommittedPictures, ChangedMasterIsNoticed) {
    const Change changes[] = {
        {"a hole one unit aside", "board.bmp", "x=\"59\" y=\"155\"", "x=\"60\" y=\"155\""},
        {"another ground", "board.bmp", "#c89664", "#c89665"},
        {"a pip half a unit aside", "die-1.gif", "x=\"25\" y=\"25\"", "x=\"25.5\" y=\"25\""},
        {"another red", "piece-1.gif", "#b81418", "#b8141a"},
        {"no highlight in the title", "side-panel.gif", "stroke=\"#f3d3a2\"", "stroke=\"none\""},
        {"another white", "marker.gif", "#ffffff", "#fffffe"},
    };
    for (const Change& change : changes) {
        const auto* entry = std::find_if(
            picture_list.begin(), picture_list.end(),
            [&](const PictureEntry& e) { return std::string(e.name) == change.picture; });
        QByteArray master = bytes_of(assets + "/masters/" + entry->master);
        ASSERT_TRUE(master.contains(change.before)) << change.what;
        const QTemporaryDir folder;
        QFile changed(folder.filePath(entry->master));
        ASSERT_TRUE(changed.open(QIODevice::WriteOnly));
        changed.write(master.replace(change.before, change.after));
        changed.close();
        const QImage made = brusbo::one_to_one_picture(*entry, folder.path());
        ASSERT_FALSE(made.isNull()) << change.what;
        EXPECT_FALSE(same_but_for_rounding(
            made, QImage(assets + "/pictures/" + entry->name).convertToFormat(made.format())))
            << change.what;
    }
}

TEST(CommittedIcons, AreWhatTheIconGives) {
    for (const int side : brusbo::all_icon_sides) {
        const QImage committed(assets + QString("/icon/brusbo-%1.png").arg(side));
        EXPECT_TRUE(same_but_for_rounding(brusbo::icon_picture(assets + "/icon/brusbo.svg", side)
                                              .convertToFormat(QImage::Format_ARGB32),
                                          committed.convertToFormat(QImage::Format_ARGB32)))
            << side;
    }
}

}  // namespace
