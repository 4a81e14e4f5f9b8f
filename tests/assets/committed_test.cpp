// The committed pictures, icons and sounds: what their sources give, in the right formats.

#include <QTemporaryDir>
#include <QtEndian>
#include <map>
#include <numeric>

#include "assets/tools/picture_files.h"
#include "assets/tools/sound_synthesis.h"
#include "tests/assets/pictures.h"

namespace brusbo::test {

// Processors of different makes may round a few edge pixels differently.
bool same_but_for_rounding(const QImage& a, const QImage& b) {
    if (a.isNull() || a.size() != b.size() || a.format() != b.format()) return false;
    qsizetype differing = 0;
    int greatest = 0;
    for (qsizetype i = 0; i < a.sizeInBytes(); ++i) {
        const int step = std::abs(a.constBits()[i] - b.constBits()[i]);
        differing += step == 0 ? 0 : 1;
        greatest = std::max(greatest, step);
    }
    return differing * 100 <= a.sizeInBytes() && greatest <= 16;
}

TEST(Committed, PicturesAreWhatTheirMastersGive) {
    for (const PictureEntry& entry : picture_list) {
        SCOPED_TRACE(entry.name);
        const QImage made = one_to_one_picture(entry, assets + "/masters");
        const QImage picture = committed(entry);
        ASSERT_TRUE(same_but_for_rounding(made, picture))
            << "run `cmake --build BUILD --target assets`; it needs the package libqt6svg6";
        // Read back by another decoder than the one that writes.
        const QTemporaryDir folder;
        ASSERT_TRUE(write_picture(made, folder.filePath(entry.name)));
        EXPECT_EQ(QImage(folder.filePath(entry.name)).convertToFormat(made.format()), made);

        const QByteArray bytes = bytes_of(assets + "/pictures/" + entry.name);
        const bool bitmap = QByteArray(entry.name).endsWith(".bmp");
        EXPECT_TRUE(bytes.startsWith(bitmap ? "BM" : "GIF89a"));
        EXPECT_TRUE(!bitmap || bytes.at(28) == 24) << "bits to the pixel";
        const QImage filled = picture.convertToFormat(QImage::Format_RGB32);
        EXPECT_EQ(filled.convertToFormat(picture.format()) == picture, entry.opaque);
        EXPECT_EQ(qAlpha(picture.pixel(0, 0)) != 0, entry.opaque);
    }
}

TEST(Committed, IconsAreWhatTheIconGives) {
    for (const int side : all_icon_sides) {
        const QImage made = icon_picture(assets + "/icon/brusbo.svg", side);
        const QImage icon(assets + QString("/icon/brusbo-%1.png").arg(side));
        EXPECT_TRUE(same_but_for_rounding(made, icon.convertToFormat(made.format()))) << side;
    }
}

TEST(Committed, SoundsAreWhatTheSourceGivesAndKeepTheirLimits) {
    // 16, PCM, 1 channel, 44100 Hz, 88200 bytes/s, 2 bytes, 16 bits
    const QByteArray format("RIFFWAVEfmt \x10\0\0\0\1\0\1\0\x44\xAC\0\0\x88\x58\1\0\2\0\x10\0data",
                            36);
    // Milliseconds, the closing silence included.
    const std::map<std::string, std::pair<int, int>> lengths = {
        {"s1.wav", {20, 80}}, {"s2.wav", {60, 150}}, {"s3.wav", {900, 1200}}};
    constexpr int millisecond = samples_per_second / 1000;
    constexpr int window = 25 * millisecond;
    std::vector<double> levels;  // of the loudest 25 ms, in decibels
    for (const auto& [file, samples] : all_sounds()) {
        SCOPED_TRACE(file);
        const QByteArray bytes = bytes_of(assets + "/data/" + file.c_str());
        const QByteArray made = QByteArray::fromStdString(wave_file(samples));
        ASSERT_EQ(bytes.size(), made.size());
        EXPECT_EQ(bytes.left(44), made.left(44));
        EXPECT_EQ(bytes.left(4) + bytes.mid(8, 32), format);
        // The mathematics library may round the last bit differently.
        for (qsizetype at = 44; at < bytes.size(); at += 2)
            ASSERT_NEAR(qFromLittleEndian<qint16>(bytes.constData() + at),
                        qFromLittleEndian<qint16>(made.constData() + at), 1);

        const auto length = static_cast<int>(samples.size());
        ASSERT_GE(length, lengths.at(file).first * samples_per_second / 1000);
        EXPECT_LE(length, lengths.at(file).second * samples_per_second / 1000);
        const auto peak = [s = samples](int from, int to) {
            const auto [low, high] = std::minmax_element(s.begin() + from, s.begin() + to);
            return std::max(-*low, +*high);
        };
        const int highest = peak(0, length);
        EXPECT_TRUE(highest > 32768 / 8 && highest < 30000) << "faint or clipped: " << highest;
        EXPECT_GE(peak(0, 3 * millisecond), highest / 10) << "starts at once";
        EXPECT_LT(peak(length - 8 * millisecond, length), highest / 300) << "ends softly";
        EXPECT_EQ(peak(length - 2 * millisecond, length), 0) << "ends in silence";
        double loudest = 0;
        for (auto from = samples.begin(); samples.end() - from >= window; ++from)
            loudest = std::max(loudest, std::inner_product(from, from + window, from, 0.0));
        levels.push_back(10 * std::log10(loudest));
    }
    for (const double level : levels) EXPECT_NEAR(level, levels.at(1), 3) << "level with the step";
}

}  // namespace brusbo::test
