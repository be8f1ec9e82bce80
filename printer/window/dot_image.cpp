// SPDX-License-Identifier: MIT

#include "printer/window/dot_image.h"

#include <QTransform>

namespace vantrel::printer {

QImage ImageOf(const Bitmap& dots, int quarter_turns) {
  QImage image(dots.Width(), dots.Height(), QImage::Format_Mono);
  image.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0)});
  image.fill(0);
  for (int y = 0; y < dots.Height(); ++y) {
    uchar* line = image.scanLine(y);
    for (int x = 0; x < dots.Width(); ++x) {
      if (dots.At(x, y)) line[x / 8] = static_cast<uchar>(line[x / 8] | (0x80U >> (x % 8)));
    }
  }
  return quarter_turns % 4 == 0 ? image
                                : image.transformed(QTransform().rotate(90.0 * quarter_turns));
}

Bitmap DotsOf(const QImage& picture) {
  Bitmap dots(picture.width(), picture.height());
  for (int y = 0; y < dots.Height(); ++y) {
    for (int x = 0; x < dots.Width(); ++x) {
      if (picture.pixel(x, y) == qRgb(0, 0, 0)) dots.Set(x, y, true);
    }
  }
  return dots;
}

}  // namespace vantrel::printer
