// SPDX-License-Identifier: MIT
#pragma once

#include "printer/drawing/bitmap.h"

#include <QImage>

namespace vantrel::printer {

// The picture, one pixel a dot, turned clockwise by quarter turns (0 to 3).
QImage ImageOf(const Bitmap& dots, int quarter_turns = 0);

// The dots of such a picture.
Bitmap DotsOf(const QImage& picture);

}  // namespace vantrel::printer
