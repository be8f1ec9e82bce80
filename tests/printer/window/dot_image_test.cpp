// SPDX-License-Identifier: MIT

#include "printer/window/dot_image.h"

#include <gtest/gtest.h>

namespace vantrel::printer {
namespace {

TEST(DotImage, IsTurnedClockwiseAndBackToDots) {
  Bitmap dots(10, 2);
  dots.Set(9, 0, true);
  // What was at the right end of the upper row is at the bottom of the right column.
  const QImage turned = ImageOf(dots, 1);
  ASSERT_EQ(turned.size(), QSize(2, 10));
  EXPECT_EQ(turned.pixel(1, 9), qRgb(0, 0, 0));
  EXPECT_EQ(turned.pixel(0, 9), qRgb(255, 255, 255));
  Bitmap standing(2, 10);
  standing.Set(1, 9, true);
  EXPECT_EQ(DotsOf(turned), standing);
}

}  // namespace
}  // namespace vantrel::printer
