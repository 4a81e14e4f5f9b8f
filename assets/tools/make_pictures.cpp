// Makes the 1:1 pictures and the icon's pixel pictures from the masters; ImageMagick writes the GIF
// files. Usage: make_pictures ASSETS_FOLDER OUTPUT_FOLDER, which has folders pictures and icon.

#include <QGuiApplication>
#include <QPainter>
#include <QProcess>
#include <QStandardPaths>

#include "assets/picture_list.h"
#include "assets/render_master.h"
#include "assets/tools/record_master.h"

namespace {

// Pixels at least this much covered are kept where a picture has no half-transparent pixels; fewer
// are lost where the matte is about the ground that the picture stands on.
constexpr int least_kept_alpha = 110;
constexpr int least_kept_alpha_on_panel = 40;
constexpr int icon_master_side = 96;

/// Soft edges are mixed with the matte and cut: a pixel of a GIF is there or not.
QImage hard_edged(const QImage& soft, std::uint32_t matte) {
    const int least = matte == brusbo::panel_matte ? least_kept_alpha_on_panel : least_kept_alpha;
    QImage image(soft.size(), QImage::Format_ARGB32);
    image.fill(0xFF000000U | matte);
    QPainter(&image).drawImage(0, 0, soft);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(soft.pixel(x, y)) < least) image.setPixel(x, y, 0);
    return image;
}

void write(const QImage& image, const QString& path) {
    if (!path.endsWith(".gif")) {
        if (!image.save(path)) qFatal("cannot write %s", qPrintable(path));
        return;
    }
    const bool newer = !QStandardPaths::findExecutable("magick").isEmpty();
    QProcess magick;
    magick.setProcessChannelMode(QProcess::ForwardedChannels);
    // A palette of 255 colours leaves one entry for transparency. Dithering would roughen the wood.
    magick.start(newer ? "magick" : "convert",
                 {"png:-", "+dither", "-treedepth", "8", "-colors", "255", path});
    const bool sent = magick.waitForStarted() && image.save(&magick, "PNG");
    magick.closeWriteChannel();
    if (!sent || !magick.waitForFinished() || magick.exitCode() != 0)
        qFatal("cannot write %s; is imagemagick installed?", qPrintable(path));
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 3) qFatal("usage: make_pictures ASSETS_FOLDER OUTPUT_FOLDER");
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const QString output = QString::fromLocal8Bit(argv[2]);
    for (const brusbo::PictureEntry& e : brusbo::picture_list) {
        const QPicture master = record_master(folder + "/masters/" + e.master);
        const QRect region(e.x, e.y, e.width, e.height);
        const QImage soft = brusbo::render_master(master, region, 1);
        write(hard_edged(soft, e.matte), output + "/pictures/" + e.name);
    }
    const QPicture icon = record_master(folder + "/icon/brusbo.svg");
    for (const int side : brusbo::all_icon_sides) {
        const QRect region(0, 0, icon_master_side, icon_master_side);
        write(brusbo::render_master(icon, region, double(side) / icon_master_side),
              output + QString("/icon/brusbo-%1.png").arg(side));
    }
}
