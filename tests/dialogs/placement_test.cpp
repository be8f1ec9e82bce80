// SPDX-License-Identifier: MIT

#include "dialogs/placement.h"

#include <gtest/gtest.h>

namespace vantrel::dialogs {
namespace {

constexpr QRect kScreen(0, 0, 1024, 640);

TEST(Placement, AWindowLiesInTheMiddleOfTheOther) {
  EXPECT_EQ(CentreOver({100, 100, 401, 301}, {201, 101}, kScreen), QPoint(200, 200));
}

TEST(Placement, AWindowStaysOnTheScreen) {
  EXPECT_EQ(CentreOver({900, 500, 400, 300}, {300, 200}, kScreen), QPoint(724, 440));
  EXPECT_EQ(CentreOver({-300, -300, 400, 300}, {300, 200}, kScreen), QPoint(0, 0));
}

TEST(Placement, OfAWindowThatIsTooLargeTheLeftTopCornerIsSeen) {
  EXPECT_EQ(CentreOver({100, 100, 400, 300}, {2000, 1000}, kScreen), QPoint(0, 0));
}

TEST(Placement, ASecondScreenHasItsOwnBounds) {
  EXPECT_EQ(CentreOver({1100, 10, 100, 100}, {400, 300}, {1024, 0, 800, 600}), QPoint(1024, 0));
}

}  // namespace
}  // namespace vantrel::dialogs
