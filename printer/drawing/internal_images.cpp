// SPDX-License-Identifier: MIT

#include "printer/drawing/internal_images.h"

#include <cstdlib>
#include <stdexcept>

namespace vantrel::printer {
namespace {

// Whether a dot of a shape is black. x and y run from -47 to 47 in steps of two, 0 being the
// middle.
using Shape = bool (*)(int x, int y);

constexpr int kSide = 48;
constexpr int kEdge = kSide - 1;

bool IsWithin(int x, int y, int radius) { return x * x + y * y <= radius * radius; }

bool Frame(int x, int y) { return std::abs(x) > kEdge - 8 || std::abs(y) > kEdge - 8; }
bool Disc(int x, int y) { return IsWithin(x, y, kEdge); }
bool Ring(int x, int y) { return IsWithin(x, y, kEdge) && !IsWithin(x, y, kEdge - 14); }
bool Arrow(int x, int y) { return x < 4 ? std::abs(y) < 14 : std::abs(y) <= kEdge + 1 - x; }
bool Tick(int x, int y) {
  const int line = x < -14 ? x + 40 : 12 - x;
  return std::abs(y - line) < 14 && x > -44 && x < 44;
}
bool Chequered(int x, int y) {
  constexpr int kField = 16;
  return ((x + kSide) / kField + (y + kSide) / kField) % 2 == 0;
}

constexpr Shape kShapes[kInternalImages] = {Frame, Disc, Ring, Arrow, Tick, Chequered};

}  // namespace

Bitmap InternalImage(int number) {
  if (number < 0 || number >= kInternalImages)
    throw std::out_of_range("The printer has no such internal image.");
  Bitmap image(kSide, kSide);
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) image.Set(x, y, kShapes[number](2 * x - kEdge, 2 * y - kEdge));
  }
  return image;
}

}  // namespace vantrel::printer
