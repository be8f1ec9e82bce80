// SPDX-License-Identifier: MIT

#include "printer/drawing/page.h"

namespace vantrel::printer {

Page::Page(Bitmap& face, char direction)
    : face_(face), vertical_(protocol::IsVertical(direction)), overwrites_(direction < '2') {}

bool Page::Put(const Bitmap& picture, int left, int bottom, int widen, int heighten) {
  const int width = picture.Width() * widen;
  const int height = picture.Height() * heighten;
  const int top = bottom - height + 1;
  if (left < 0 || top < 0 || left + width > Width() || bottom >= Height()) return false;
  for (int y = 0; y < picture.Height(); ++y) {
    for (int x = 0; x < picture.Width(); ++x) {
      const bool black = picture.At(x, y);
      if (black || overwrites_) Fill(left + x * widen, top + y * heighten, widen, heighten, black);
    }
  }
  return true;
}

void Page::Fill(int left, int top, int width, int height, bool black) {
  for (int y = top; y < top + height; ++y) {
    for (int x = left; x < left + width; ++x) {
      if (vertical_)
        face_.Set(y, kFaceHeight - 1 - x, black);
      else
        face_.Set(x, y, black);
    }
  }
}

}  // namespace vantrel::printer
