// SPDX-License-Identifier: MIT

#include "printdata/barcode.h"
#include "tests/printdata/code_set_tables.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

namespace vantrel::printdata {
namespace {

using testing::ElementsAreArray;

TEST(CodeSetCaptions, OfSetA) {
  ASSERT_EQ(kSetA.size(), 103U);
  EXPECT_THAT(CodeSetCaptions(0), ElementsAreArray(kSetA));
}

TEST(CodeSetCaptions, OfSetB) {
  ASSERT_EQ(kSetB.size(), 103U);
  EXPECT_THAT(CodeSetCaptions(1), ElementsAreArray(kSetB));
}

TEST(CodeSetCaptions, OfSetC) {
  ASSERT_EQ(kSetC.size(), 103U);
  EXPECT_THAT(CodeSetCaptions(2), ElementsAreArray(kSetC));
}

TEST(TypeCaptions, OfCode39) {
  for (const int type : {2, 3})
    EXPECT_THAT(TypeCaptions(type),
                testing::ElementsAre("0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "-", ".",
                                     "SPC", "$", "/", "+", "%"));
}

TEST(TypeCaptions, OfItf) {
  for (const int type : {4, 5})
    EXPECT_THAT(TypeCaptions(type),
                testing::ElementsAre("0", "1", "2", "3", "4", "5", "6", "7", "8", "9"));
}

TEST(TypeCaptions, OfCodabar) {
  for (const int type : {6, 7})
    EXPECT_THAT(TypeCaptions(type), testing::ElementsAre("0", "1", "2", "3", "4", "5", "6", "7",
                                                         "8", "9", "-", ".", ":", "$", "/", "+"));
}

}  // namespace
}  // namespace vantrel::printdata
