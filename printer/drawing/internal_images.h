// SPDX-License-Identifier: MIT
#pragma once

#include "printer/drawing/bitmap.h"

namespace vantrel::printer {

// How many of the images that 42h can ask for the printer holds: the first.
inline constexpr int kInternalImages = 6;

// An internal image of 48 x 48 dots: 0 a frame, 1 a disc, 2 a ring, 3 an arrow to the right, 4 a
// tick, 5 a chequered square. Throws std::out_of_range for any other number.
Bitmap InternalImage(int number);

}  // namespace vantrel::printer
