// SPDX-License-Identifier: MIT

#include "printer/drawing/bitmap.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace vantrel::printer {
namespace {

TEST(Bitmap, KeepsEachDotByItself) {
  // 70 dots, so that a row ends within a word and the last word is not full.
  Bitmap picture(7, 10);
  for (int y = 0; y < 10; ++y) {
    for (int x = 0; x < 7; ++x) {
      picture.Set(x, y, true);
      for (int other = 0; other < 70; ++other)
        ASSERT_EQ(picture.At(other % 7, other / 7), other == 7 * y + x) << other;
      picture.Set(x, y, false);
    }
  }
  EXPECT_EQ(picture, Bitmap(7, 10));
}

TEST(Bitmap, HasNoDotsOutside) {
  Bitmap picture(7, 10);
  EXPECT_THROW(picture.At(7, 0), std::out_of_range);
  EXPECT_THROW(picture.At(-1, 1), std::out_of_range);
  EXPECT_THROW(picture.Set(0, 10, true), std::out_of_range);
  EXPECT_EQ(picture, Bitmap(7, 10));
}

TEST(Bitmap, MergesTheBlackDotsOfAnother) {
  Bitmap picture(480, 320);
  picture.Set(1, 2, true);
  picture.Set(3, 4, true);
  Bitmap other(480, 320);
  other.Set(3, 4, true);
  other.Set(479, 319, true);
  picture.Merge(other);
  Bitmap expected(480, 320);
  expected.Set(1, 2, true);
  expected.Set(3, 4, true);
  expected.Set(479, 319, true);
  EXPECT_EQ(picture, expected);
}

TEST(Bitmap, MergesNoPictureOfAnotherSize) {
  Bitmap picture(8, 4);
  Bitmap other(4, 8);
  other.Set(0, 0, true);
  EXPECT_THROW(picture.Merge(other), std::invalid_argument);
  EXPECT_EQ(picture, Bitmap(8, 4));
}

}  // namespace
}  // namespace vantrel::printer
