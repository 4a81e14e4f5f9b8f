// Makes the 1:1 pictures and the icon's pixel pictures from the masters.
// Usage: make_pictures ASSETS_FOLDER

#include <QGuiApplication>
#include <cstdio>

#include "picture_files.h"

namespace {

bool make_icon(const QString& folder, int side) {
    const QImage icon = brusbo::icon_picture(folder + "/icon/brusbo.svg", side);
    return !icon.isNull() && icon.save(folder + QString("/icon/brusbo-%1.png").arg(side), "PNG");
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_pictures ASSETS_FOLDER\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    for (const brusbo::PictureEntry& entry : brusbo::picture_list) {
        const QImage picture = brusbo::one_to_one_picture(entry, folder + "/masters");
        if (picture.isNull() ||
            !brusbo::write_picture(picture, folder + "/pictures/" + entry.name)) {
            std::fprintf(stderr, "make_pictures: cannot make %s (is libqt6svg6 installed?)\n",
                         entry.name);
            return 1;
        }
    }
    for (const int side : brusbo::all_icon_sides) {
        if (!make_icon(folder, side)) {
            std::fprintf(stderr, "make_pictures: cannot make the icon of %d pixels\n", side);
            return 1;
        }
    }
    return 0;
}
