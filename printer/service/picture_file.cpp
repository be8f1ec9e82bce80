// SPDX-License-Identifier: MIT

#include "printer/service/picture_file.h"

#include "log/file_saver.h"
#include "printer/drawing/png_file.h"

namespace vantrel::printer {
namespace {

// A row fills whole bytes, the first dot in the highest bit.
std::string PortableBitmapOf(const Bitmap& dots) {
  std::string file =
      "P4\n" + std::to_string(dots.Width()) + ' ' + std::to_string(dots.Height()) + '\n';
  for (int y = 0; y < dots.Height(); ++y) {
    for (int x = 0; x < dots.Width(); x += 8) {
      unsigned byte = 0;
      for (int bit = 0; bit < 8; ++bit) {
        if (dots.Holds(x + bit, y) && dots.At(x + bit, y)) byte |= 0x80U >> bit;
      }
      file += static_cast<char>(byte);
    }
  }
  return file;
}

}  // namespace

std::string SavePicture(const Bitmap& dots, PictureFormat format, const std::string& path) {
  return log::ReplaceFile(path,
                          format == PictureFormat::kPng ? PngOf(dots) : PortableBitmapOf(dots));
}

}  // namespace vantrel::printer
