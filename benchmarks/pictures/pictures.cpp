// How long it takes to load every picture of the program and paint it once, at each scale.

#include "platform/pictures.h"

#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>

#include "assets/picture_list.h"

namespace {

using namespace brusbo;

constexpr std::array scales{1.0, 1.25, 1.5, 2.0, 3.0};
constexpr int rounds = 11;

// Of processor time, which other programs on the machine do not use up.
double milliseconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

// Milliseconds for all pictures, each painted into the top left corner of a window's pixels.
double paint_all(QImage& window, QPointF corner) {
    const double start = milliseconds();
    QPainter painter(&window);
    painter.translate(corner);
    for (const PictureEntry& entry : picture_list)
        paint_picture(painter, {static_cast<std::uint8_t>(&entry - picture_list.data())}, {0, 0});
    return milliseconds() - start;
}

double median(std::array<double, rounds> times) {
    std::sort(times.begin(), times.end());
    return times[rounds / 2];
}

}  // namespace

int main() {
    // The plugin is loaded once, not for every scale.
    const double start = milliseconds();
    const bool vectors = QImageReader::supportedImageFormats().contains("svg");
    std::printf("image plugins loaded in %.2f ms; the SVG plugin is %s\n", milliseconds() - start,
                vectors ? "there" : "NOT there: pictures are scaled instead of rendered");
    std::printf("%zu pictures, CPU milliseconds, the median of %d\n", picture_list.size(), rounds);
    std::printf("scale   the very first   loaded and painted   painted again\n");
    std::array<double, scales.size()> medians{};
    for (std::size_t s = 0; s < scales.size(); ++s) {
        QImage window((QSizeF(570, 416) * scales[s]).toSize(), QImage::Format_ARGB32_Premultiplied);
        window.setDevicePixelRatio(scales[s]);
        window.fill(Qt::black);
        std::array<double, rounds> first{};
        std::array<double, rounds> again{};
        for (std::size_t i = 0; i < rounds; ++i) {
            // Renderings are kept, for each fraction of a pixel at which a picture lies its own.
            const double fraction = scales[s] == 1 ? 0 : static_cast<double>(i) / 64 / scales[s];
            first[i] = paint_all(window, {fraction, fraction});
            again[i] = paint_all(window, {fraction, fraction});
        }
        medians[s] = median(first);
        std::printf("%-5g   %14.3f   %18.3f   %13.3f\n", scales[s], first[0], medians[s],
                    median(again));
    }
    std::printf("scale 1 to scale 2: %.4f\n", medians[0] / medians[3]);
}
