#include "printer/page.h"

namespace vantrel {

Page::Page(Bitmap& face, char direction)
    : face_(face), vertical_(IsVertical(direction)), overwrites_(direction < '2') {}

bool Page::Put(const Bitmap& picture, int left, int bottom, int widen, int heighten) {
  const int width = picture.Width() * widen;
  const int height = picture.Height() * heighten;
  const int top = bottom - height + 1;
  if (left < 0 || top < 0 || left + width > Width() || bottom >= Height()) return false;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const bool black = picture.At(x / widen, y / heighten);
      if (!black && !overwrites_) continue;
      if (vertical_)
        face_.Set(top + y, kFaceHeight - 1 - (left + x), black);
      else
        face_.Set(left + x, top + y, black);
    }
  }
  return true;
}

}  // namespace vantrel
