#pragma once

#include "printer/bitmap.h"

namespace vantrel {

// The images that 42h expands have numbers from 0 to this; the printer holds the first few.
inline constexpr int kHighestImageNumber = 1999;
inline constexpr int kInternalImages = 6;

// An internal image of 48 x 48 dots: 0 a frame, 1 a disc, 2 a ring, 3 an arrow to the right, 4 a
// tick, 5 a chequered square. Throws std::out_of_range for any other number.
Bitmap InternalImage(int number);

}  // namespace vantrel
