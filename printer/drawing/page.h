// SPDX-License-Identifier: MIT
#pragma once

#include "printer/drawing/bitmap.h"

namespace vantrel::printer {

// The print expansion buffer as one of the card arrangement directions sees it. x runs along a line
// of text and y from line to line; (0, 0) is the corner where the first line begins.
//
// Horizontal (directions 1 and 3): 480 x 320 dots, as the face lies. Vertical (0 and 2): 320 x 480
// dots; the text stands on the left edge of the lying face, so a vertical card is read with the
// face turned a quarter clockwise:
//
//        horizontal                      vertical, on the lying face
//   (0,0) ----------> x  479              x ^
//     |  +--------------------+             |  +--------------------+
//     |  | TEXT               |             |  | T                  |
//   y v  |                    |             |  | X                  |
//    319 +--------------------+      (0,0) -+  +--------------------+
//                                           +----------> y  479
//
// So the origin of vertical text is the left bottom corner of the lying face, and that of
// horizontal text, of images and of barcodes the left top one. A reference point (X, Y) is the left
// bottom dot of the character or image that it places, in the direction in which that is read.
class Page {
 public:
  // `direction` is '0' to '3'; '0' and '1' overwrite, '2' and '3' add. `face` is of kFaceWidth x
  // kFaceHeight dots and must outlive the page.
  Page(Bitmap& face, char direction);

  int Width() const { return vertical_ ? kFaceHeight : kFaceWidth; }
  int Height() const { return vertical_ ? kFaceWidth : kFaceHeight; }

  // Draws a picture, each of its dots `widen` dots wide and `heighten` high, with its left bottom
  // dot at (left, bottom). Overwriting, its white dots are drawn too. Returns false, and draws
  // nothing, where a part would lie outside the page.
  bool Put(const Bitmap& picture, int left, int bottom, int widen = 1, int heighten = 1);

 private:
  void Fill(int left, int top, int width, int height, bool black);

  Bitmap& face_;
  bool vertical_;
  bool overwrites_;
};

}  // namespace vantrel::printer
