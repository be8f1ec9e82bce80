// SPDX-License-Identifier: MIT

#include "printer/drawing/internal_images.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace vantrel::printer {
namespace {

// Where black begins in a row, and where it ends, in turn.
std::vector<int> EdgesInRow(const Bitmap& image, int y) {
  std::vector<int> edges;
  for (int x = 0; x < image.Width(); ++x) {
    if (image.At(x, y) != (edges.size() % 2 == 1)) edges.push_back(x);
  }
  if (edges.size() % 2 == 1) edges.push_back(image.Width());
  return edges;
}

using Edges = std::vector<int>;

TEST(InternalImage, AreOf48By48DotsAndSix) {
  for (int number = 0; number < 6; ++number) {
    EXPECT_EQ(InternalImage(number).Width(), 48);
    EXPECT_EQ(InternalImage(number).Height(), 48);
  }
  EXPECT_THROW(InternalImage(6), std::out_of_range);
  EXPECT_THROW(InternalImage(-1), std::out_of_range);
}

TEST(InternalImage, TheFrameIsFourDotsWide) {
  const Bitmap frame = InternalImage(0);
  for (const int y : {0, 3, 44, 47}) EXPECT_EQ(EdgesInRow(frame, y), (Edges{0, 48})) << y;
  for (const int y : {4, 24, 43}) EXPECT_EQ(EdgesInRow(frame, y), (Edges{0, 4, 44, 48})) << y;
}

TEST(InternalImage, TheDiscTouchesEverySideAndTheRingIsSevenDotsWide) {
  const Bitmap disc = InternalImage(1);
  const Bitmap ring = InternalImage(2);
  EXPECT_FALSE(disc.At(0, 0));
  EXPECT_EQ(EdgesInRow(disc, 24), (Edges{1, 47}));
  EXPECT_EQ(EdgesInRow(ring, 24), (Edges{1, 8, 40, 47}));
  // Round: as far down as across.
  for (int i = 0; i < 48; ++i) {
    EXPECT_EQ(disc.At(24, i), disc.At(i, 24)) << i;
    EXPECT_EQ(ring.At(24, i), ring.At(i, 24)) << i;
  }
}

TEST(InternalImage, TheArrowHasAShaftOf14RowsAndPointsToTheRight) {
  const Bitmap arrow = InternalImage(3);
  // The shaft ends at its 26 columns where there is no head.
  EXPECT_EQ(EdgesInRow(arrow, 17), (Edges{0, 42}));
  EXPECT_EQ(EdgesInRow(arrow, 30), (Edges{0, 42}));
  EXPECT_EQ(EdgesInRow(arrow, 16), (Edges{26, 41}));
  EXPECT_EQ(EdgesInRow(arrow, 31), (Edges{26, 41}));
  EXPECT_EQ(EdgesInRow(arrow, 23), (Edges{0, 48}));
  EXPECT_EQ(EdgesInRow(arrow, 0), Edges{});
}

TEST(InternalImage, TheChequeredSquareHasFieldsOfEightDots) {
  const Bitmap chequered = InternalImage(5);
  for (const int y : {0, 7, 16, 23})
    EXPECT_EQ(EdgesInRow(chequered, y), (Edges{0, 8, 16, 24, 32, 40})) << y;
  for (const int y : {8, 15, 40, 47})
    EXPECT_EQ(EdgesInRow(chequered, y), (Edges{8, 16, 24, 32, 40, 48})) << y;
}

}  // namespace
}  // namespace vantrel::printer
