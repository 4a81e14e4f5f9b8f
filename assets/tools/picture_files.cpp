#include "picture_files.h"

#include <gif_lib.h>

#include <QFile>
#include <QPainter>
#include <algorithm>
#include <map>
#include <vector>

#include "assets/render_master.h"

namespace brusbo {

namespace {

// Pixels at least this much covered are kept where a picture has no half-transparent pixels.
constexpr int least_kept_alpha = 110;
constexpr std::size_t most_colours = 255;  // leaves one entry of a GIF's palette for transparency

struct Counted {
    QRgb colour;
    int count;
};

int channel(QRgb colour, int index) {
    return static_cast<int>(colour >> (8U * static_cast<unsigned>(index))) & 0xFF;
}

// A part of the picture's colours that will share one palette entry.
struct Box {
    std::vector<Counted> colours;
    int widest_channel = 0;
    int width = 0;

    void measure() {
        for (int c = 0; c < 3; ++c) {
            const auto less = [c](const Counted& a, const Counted& b) {
                return channel(a.colour, c) < channel(b.colour, c);
            };
            const auto [low, high] = std::minmax_element(colours.begin(), colours.end(), less);
            const int span = channel(high->colour, c) - channel(low->colour, c);
            if (c == 0 || span > width) {
                width = span;
                widest_channel = c;
            }
        }
    }

    QRgb mean() const {
        long sums[3] = {0, 0, 0};
        long total = 0;
        for (const Counted& counted : colours) {
            for (int c = 0; c < 3; ++c) sums[c] += long(channel(counted.colour, c)) * counted.count;
            total += counted.count;
        }
        const auto rounded = [&](int c) { return static_cast<int>((sums[c] + total / 2) / total); };
        return qRgb(rounded(2), rounded(1), rounded(0));
    }
};

// Halves the widest box until the palette is full; the error of a colour stays below the width of
// its box, two or three steps of a channel for the pictures of this program.
std::map<QRgb, QRgb> reduced_palette(const std::map<QRgb, int>& histogram) {
    std::vector<Box> boxes(1);
    for (const auto& [colour, count] : histogram) boxes[0].colours.push_back({colour, count});
    boxes[0].measure();
    while (boxes.size() < most_colours) {
        auto widest = std::max_element(boxes.begin(), boxes.end(), [](const Box& a, const Box& b) {
            return a.width < b.width;
        });
        if (widest->width == 0) break;
        const int c = widest->widest_channel;
        auto& colours = widest->colours;
        std::stable_sort(colours.begin(), colours.end(), [c](const Counted& a, const Counted& b) {
            return channel(a.colour, c) < channel(b.colour, c);
        });
        const auto middle = colours.begin() + static_cast<std::ptrdiff_t>(colours.size() / 2);
        Box upper;
        upper.colours.assign(middle, colours.end());
        colours.erase(middle, colours.end());
        widest->measure();
        upper.measure();
        boxes.push_back(std::move(upper));
    }
    std::map<QRgb, QRgb> palette;
    for (const Box& box : boxes) {
        const QRgb mean = box.mean();
        for (const Counted& counted : box.colours) palette[counted.colour] = mean;
    }
    return palette;
}

bool is_gif(const QString& name) { return name.endsWith(".gif"); }

void reduce_colours(QImage& picture) {
    std::map<QRgb, int> histogram;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            if (qAlpha(pixel) != 0) ++histogram[pixel];
        }
    }
    if (histogram.size() <= most_colours) return;
    const std::map<QRgb, QRgb> palette = reduced_palette(histogram);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            if (qAlpha(pixel) != 0) picture.setPixel(x, y, palette.at(pixel));
        }
    }
}

// giflib's own way to open a file makes it readable by its owner only.
int append(GifFileType* gif, const GifByteType* bytes, int length) {
    return static_cast<int>(
        static_cast<QFile*>(gif->UserData)->write(reinterpret_cast<const char*>(bytes), length));
}

bool write_gif(const QImage& picture, const QString& path) {
    std::map<QRgb, int> indexes;
    bool transparent = false;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            qAlpha(pixel) != 0 ? void(indexes[pixel]) : void(transparent = true);
        }
    }
    int next = transparent ? 1 : 0;  // entry 0 is the transparent one
    ColorMapObject* colours = GifMakeMapObject(256, nullptr);
    if (colours == nullptr || static_cast<int>(indexes.size()) + next > 256) return false;
    for (auto& [colour, index] : indexes) {
        index = next++;
        colours->Colors[index] = {static_cast<GifByteType>(qRed(colour)),
                                  static_cast<GifByteType>(qGreen(colour)),
                                  static_cast<GifByteType>(qBlue(colour))};
    }
    int error = 0;
    QFile file(path);
    GifFileType* gif = file.open(QIODevice::WriteOnly) ? EGifOpen(&file, append, &error) : nullptr;
    if (gif == nullptr) {
        GifFreeMapObject(colours);
        return false;
    }
    EGifSetGifVersion(gif, true);
    const int width = picture.width();
    const int height = picture.height();
    bool good = EGifPutScreenDesc(gif, width, height, 8, 0, colours) == GIF_OK;
    GraphicsControlBlock control{};
    control.TransparentColor = transparent ? 0 : NO_TRANSPARENT_COLOR;
    GifByteType extension[4];
    EGifGCBToExtension(&control, extension);
    good = good &&
           EGifPutExtension(gif, GRAPHICS_EXT_FUNC_CODE, sizeof extension, extension) == GIF_OK &&
           EGifPutImageDesc(gif, 0, 0, width, height, false, nullptr) == GIF_OK;
    std::vector<GifPixelType> line(static_cast<std::size_t>(width));
    for (int y = 0; y < height && good; ++y) {
        for (int x = 0; x < width; ++x) {
            const QRgb pixel = picture.pixel(x, y);
            line[static_cast<std::size_t>(x)] =
                static_cast<GifPixelType>(qAlpha(pixel) != 0 ? indexes.at(pixel) : 0);
        }
        good = EGifPutLine(gif, line.data(), width) == GIF_OK;
    }
    GifFreeMapObject(colours);
    return EGifCloseFile(gif, &error) == GIF_OK && good;
}

}  // namespace

QImage one_to_one_picture(const PictureEntry& entry, const QString& masters_folder) {
    QFile file(masters_folder + '/' + entry.master);
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QImage rendered =
        render_master(file.readAll(), QRect(entry.x, entry.y, entry.width, entry.height), 1.0);
    if (rendered.isNull()) return {};
    QImage picture(rendered.size(), QImage::Format_ARGB32);
    picture.fill(0xFF000000U | entry.matte);
    QPainter painter(&picture);
    painter.drawImage(0, 0, rendered);
    painter.end();
    for (int y = 0; y < picture.height() && !entry.opaque; ++y) {
        for (int x = 0; x < picture.width(); ++x)
            if (qAlpha(rendered.pixel(x, y)) < least_kept_alpha) picture.setPixel(x, y, 0);
    }
    if (is_gif(entry.name)) reduce_colours(picture);
    return picture;
}

QImage icon_picture(const QString& master_path, int side) {
    constexpr int master_side = 96;
    QFile master(master_path);
    if (!master.open(QIODevice::ReadOnly)) return {};
    return render_master(master.readAll(), QRect(0, 0, master_side, master_side),
                         double(side) / master_side);
}

bool write_picture(const QImage& picture, const QString& path) {
    if (is_gif(path)) return write_gif(picture, path);
    return picture.convertToFormat(QImage::Format_RGB32).save(path, "BMP");
}

}  // namespace brusbo
