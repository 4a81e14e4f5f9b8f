#pragma once

#include <QPicture>
#include <QString>

/// The SVG drawing of the file, recorded in units of its view box. Ends the program with a message
/// where the file is missing or is no such drawing.
QPicture record_master(const QString& path);
