// SPDX-License-Identifier: MIT

#include "console/button_grid.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

namespace vantrel::console {
namespace {

TEST(ButtonGrid, FortyEightButtonsFillSixColumnsOfEight) {
  constexpr ButtonGrid kGrid(48);
  EXPECT_EQ(kGrid.Rows(), 8);
  EXPECT_EQ(kGrid.CellOf(0), (Cell{0, 0}));
  EXPECT_EQ(kGrid.CellOf(7), (Cell{7, 0}));
  EXPECT_EQ(kGrid.CellOf(8), (Cell{0, 1}));
  EXPECT_EQ(kGrid.CellOf(47), (Cell{7, 5}));
}

TEST(ButtonGrid, AFortyNinthButtonTakesANinthRow) {
  constexpr ButtonGrid kGrid(49);
  EXPECT_EQ(kGrid.Rows(), 9);
  EXPECT_EQ(kGrid.CellOf(8), (Cell{8, 0}));
  EXPECT_EQ(kGrid.CellOf(9), (Cell{0, 1}));
  EXPECT_EQ(kGrid.CellOf(48), (Cell{3, 5}));
}

TEST(ButtonGrid, EveryButtonHasACellOfItsOwnInsideTheGrid) {
  for (int count = 1; count <= 100; ++count) {
    const ButtonGrid grid(count);
    std::set<std::pair<int, int>> taken;
    for (int i = 0; i < count; ++i) {
      const Cell cell = grid.CellOf(i);
      EXPECT_LT(cell.row, grid.Rows()) << i << " of " << count;
      EXPECT_LT(cell.column, 6) << i << " of " << count;
      EXPECT_TRUE(taken.emplace(cell.row, cell.column).second) << i << " of " << count;
    }
  }
}

}  // namespace
}  // namespace vantrel::console
