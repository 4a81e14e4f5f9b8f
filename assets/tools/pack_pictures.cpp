// Turns the 1:1 pictures and the masters into one C++ source file, so that the program decodes
// nothing when it starts. Usage: pack_pictures ASSETS_FOLDER OUTPUT_FILE

#include <QFile>
#include <QImage>
#include <QTextStream>

#include "assets/picture_list.h"
#include "assets/tools/record_master.h"

namespace {

/// The pixels of a picture as an array of that name.
QString pixels(const QString& path, QSize size, const QString& array) {
    const QImage picture = QImage(path).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (picture.size() != size) qFatal("%s is missing or of a wrong size", qPrintable(path));
    QString text = "const std::uint32_t " + array + "[] = {";
    for (int y = 0; y < size.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < size.width(); ++x) text += QString::number(line[x]) + ',';
        text += '\n';
    }
    return text + "};\n";
}

/// The recorded drawing as an array of that name.
QString master(const QString& path, const QString& array) {
    const QPicture recorded = record_master(path);
    const QByteArray data = qCompress(
        QByteArray::fromRawData(recorded.data(), static_cast<qsizetype>(recorded.size())), 9);
    QString text = "const unsigned char " + array + "[] = {";
    for (const char byte : data) text += QString::number(static_cast<uchar>(byte)) + ',';
    return text + "};\n";
}

QString identifier(QString file) { return file.replace('-', '_').section('.', 0, 0); }

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) qFatal("usage: pack_pictures ASSETS_FOLDER OUTPUT_FILE");
    const QString folder = QString::fromLocal8Bit(argv[1]);
    QString arrays;
    QString pictures;
    QString icons;
    for (const brusbo::PictureEntry& entry : brusbo::picture_list) {
        const QString array = identifier(entry.name);
        const QString drawing = "drawing_" + identifier(entry.master);
        arrays += pixels(folder + "/pictures/" + entry.name, {entry.width, entry.height}, array);
        if (!arrays.contains(drawing))
            arrays += master(folder + "/masters/" + entry.master, drawing);
        pictures += "{" + array + ", " + drawing + "},\n";
    }
    for (const int side : brusbo::icon_sides) {
        const QString array = QString("icon_%1").arg(side);
        arrays += pixels(folder + QString("/icon/brusbo-%1.png").arg(side), {side, side}, array);
        icons += array + ", ";
    }
    QFile file(QString::fromLocal8Bit(argv[2]));
    if (!file.open(QIODevice::WriteOnly)) qFatal("cannot write %s", argv[2]);
    QTextStream(&file) << "#include \"assets/packed_pictures.h\"\nnamespace brusbo {\nnamespace {\n"
                       << arrays << "}\nconst PackedPicture packed_pictures[] = {\n"
                       << pictures << "};\nconst std::uint32_t* const packed_icons[] = {" << icons
                       << "};\n}\n";
}
