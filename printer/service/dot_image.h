#pragma once

#include "printer/drawing/bitmap.h"

#include <QImage>

#include <string>

namespace vantrel::printer {

// The picture, one pixel a dot, turned clockwise by quarter turns (0 to 3).
QImage ImageOf(const Bitmap& dots, int quarter_turns = 0);

// The dots of a picture of any depth; a pixel is black that is darker than middle grey.
Bitmap DotsOf(const QImage& picture);

// Saves a picture in a format that the library writes, "png" or "pbm", as log::FileSaver does.
// Returns an empty text, or why it was not saved: "PATH was not saved: Permission denied.".
std::string SavePicture(const QImage& picture, const char* format, const std::string& path);

}  // namespace vantrel::printer
