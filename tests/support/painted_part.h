// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPixmap>
#include <QRect>
#include <QWidget>

namespace vantrel::support {

// The part of a widget in which a picture of it has another colour than in its corner.
inline QRect PaintedPart(QWidget& widget) {
  const QImage picture = widget.grab().toImage();
  QRect painted;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      if (picture.pixel(x, y) != picture.pixel(0, 0)) painted |= QRect(x, y, 1, 1);
  return painted;
}

}  // namespace vantrel::support
