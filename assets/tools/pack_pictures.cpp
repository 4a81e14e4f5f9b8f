// Turns the 1:1 pictures and the masters into one C++ source file, so that the program decodes
// nothing when it starts. Usage: pack_pictures ASSETS_FOLDER OUTPUT_FILE

#include <QFile>
#include <QImage>
#include <cstdio>
#include <map>
#include <string>

#include "assets/picture_list.h"

namespace {

using brusbo::icon_sides;
using brusbo::picture_list;
using brusbo::PictureEntry;

bool append_pixels(std::string& out, const QString& path, QSize size, const std::string& array) {
    QImage picture(path);
    if (picture.size() != size) {
        std::fprintf(stderr, "pack_pictures: %s is missing or not %d x %d\n",
                     path.toLocal8Bit().constData(), size.width(), size.height());
        return false;
    }
    picture = std::move(picture).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    out += "alignas(16) const std::uint32_t " + array + "[] = {";
    char word[16];
    for (int y = 0; y < picture.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            std::snprintf(word, sizeof word, "0x%X,", line[x]);
            out += word;
        }
        out += '\n';
    }
    out += "};\n";
    return true;
}

// A string literal per line keeps the literals short enough for every compiler.
bool append_master(std::string& out, const char* name, const QString& folder, std::size_t index) {
    QFile file(folder + "/masters/" + name);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "pack_pictures: cannot read the master %s\n", name);
        return false;
    }
    out += "const char master_" + std::to_string(index) + "[] =\n";
    for (const QByteArray& line : file.readAll().split('\n'))
        out += "    R\"~(" + line.trimmed().toStdString() + "\n)~\"\n";
    out += ";\n";
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: pack_pictures ASSETS_FOLDER OUTPUT_FILE\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    std::string out =
        "// Made by pack_pictures.\n#include \"assets/packed_pictures.h\"\n"
        "namespace brusbo {\nnamespace {\n";
    std::map<std::string, std::size_t> masters;
    for (std::size_t i = 0; i < picture_list.size(); ++i) {
        const PictureEntry& entry = picture_list[i];
        if (!append_pixels(out, folder + "/pictures/" + entry.name,
                           QSize(entry.width, entry.height), "pixels_" + std::to_string(i)))
            return 1;
        if (masters.emplace(entry.master, i).second && !append_master(out, entry.master, folder, i))
            return 1;
    }
    for (const int side : icon_sides)
        if (!append_pixels(out, folder + QString("/icon/brusbo-%1.png").arg(side),
                           QSize(side, side), "icon_" + std::to_string(side)))
            return 1;
    out += "}  // namespace\nconst PackedPicture packed_pictures[] = {\n";
    for (std::size_t i = 0; i < picture_list.size(); ++i) {
        const std::string master = "master_" + std::to_string(masters.at(picture_list[i].master));
        out +=
            "    {pixels_" + std::to_string(i) + ", " + master + ", sizeof " + master + " - 1},\n";
    }
    out += "};\nconst PackedIcon packed_icons[] = {\n";
    for (const int side : icon_sides)
        out += "    {icon_" + std::to_string(side) + ", " + std::to_string(side) + "},\n";
    out += "};\n}  // namespace brusbo\n";
    QFile file(QString::fromLocal8Bit(argv[2]));
    const auto length = static_cast<qint64>(out.size());
    if (!file.open(QIODevice::WriteOnly) || file.write(out.data(), length) != length) {
        std::fprintf(stderr, "pack_pictures: cannot write %s\n", argv[2]);
        return 1;
    }
    return 0;
}
