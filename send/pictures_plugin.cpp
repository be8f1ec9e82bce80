// SPDX-License-Identifier: MIT

// Reading pictures with Qt, in a library of its own: it is loaded when a picture is to be read, so
// that a command without one need not wait for all that Qt brings along.

#include "send/pictures_plugin.h"

#include <QImage>
#include <QImageReader>

namespace {

using vantrel::send::Picture;
using vantrel::send::PictureLimits;

Picture PictureOf(const QImage& source) {
  const QImage image = source.convertToFormat(QImage::Format_ARGB32);
  Picture picture;
  picture.width = image.width();
  picture.height = image.height();
  for (int y = 0; y < image.height(); ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      picture.grey.push_back(static_cast<std::uint8_t>(qGray(row[x])));
      picture.alpha.push_back(static_cast<std::uint8_t>(qAlpha(row[x])));
    }
  }
  return picture;
}

}  // namespace

extern "C" bool VantrelReadPicture(const char* path, const PictureLimits& limits, Picture& picture,
                                   std::string& error) {
  QImageReader reader(QString::fromLocal8Bit(path));
  reader.setDecideFormatFromContent(true);
  const std::string name(path);
  if (!reader.canRead()) {
    error = name + " is no picture.";
    return false;
  }
  const QSize size = reader.size();
  if (size.isValid() && (size.width() > limits.width || size.height() > limits.height)) {
    error = vantrel::send::TooLarge(size.width(), size.height(), limits);
    return false;
  }
  const QImage image = reader.read();
  if (image.isNull()) {
    error = name + " is no picture that can be read: " + reader.errorString().toStdString() + ".";
    return false;
  }
  if (image.width() > limits.width || image.height() > limits.height) {
    error = vantrel::send::TooLarge(image.width(), image.height(), limits);
    return false;
  }
  picture = PictureOf(image);
  return true;
}
