// Writing the 1:1 pictures in their file formats.
#pragma once

#include <QImage>
#include <QString>

#include "assets/picture_list.h"

namespace brusbo {

// The 1:1 picture that the master in `masters_folder` gives: at most 256 colours and transparent or
// opaque pixels only where it is stored as a GIF. Null if the master cannot be rendered.
QImage one_to_one_picture(const PictureEntry& entry, const QString& masters_folder);

// The program's icon, `side` pixels wide and high. Null if the master cannot be rendered.
QImage icon_picture(const QString& master_path, int side);

// Writes a picture made by one_to_one_picture() as GIF or as 24-bit bitmap, by the file's ending.
bool write_picture(const QImage& picture, const QString& path);

}  // namespace brusbo
