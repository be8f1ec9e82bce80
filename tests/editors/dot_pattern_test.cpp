// SPDX-License-Identifier: MIT

#include "editors/dot_pattern.h"

#include "tests/editors/text.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace vantrel::editors {
namespace {

TEST(DotPattern, TheTopDotOfEightIsTheLeastSignificantBit) {
  const char* const bytes[] = {"01", "02", "04", "08", "10", "20", "40", "80"};
  for (int dot = 0; dot < 8; ++dot) {
    DotPattern dots(2, 16);
    dots.SetValue(16 + dot, 1);
    EXPECT_EQ(dots.HexByte(16), bytes[dot]) << "dot " << dot;
  }
}

TEST(DotPattern, HexGoesDownAColumnAndThenToTheNext) {
  DotPattern dots(2, 16);
  dots.SetValue(0, 1);   // column 0, byte 0, bit 0
  dots.SetValue(15, 1);  // column 0, byte 1, bit 7
  dots.SetValue(17, 1);  // column 1, byte 0, bit 1
  dots.SetValue(28, 1);  // column 1, byte 1, bit 4
  EXPECT_EQ(dots.Hex(1, 1), "01800210");
  EXPECT_EQ(dots.Hex(0, 1), "0180");
  EXPECT_EQ(dots.Hex(1, 0), "0102");
}

TEST(DotPattern, ABytePastItsColumnIsReadFromTheNextOne) {
  DotPattern dots(2, 16);
  dots.SetValue(17, 1);
  EXPECT_EQ(dots.Hex(0, 3), "00000200");
}

TEST(DotPattern, ValuePaintAndVisibilityAreIndependent) {
  DotPattern dots(1, 8);
  dots.SetValue(3, 1);
  EXPECT_FALSE(dots.IsBlack(3));
  dots.Paint(4, true);
  EXPECT_EQ(dots.Value(4), 0);
  dots.Show(3, false);
  EXPECT_EQ(dots.Value(3), 1);
  EXPECT_EQ(dots.HexByte(0), "08");
}

TEST(DotPattern, AToggleIsJudgedByThePaint) {
  DotPattern dots(1, 8);
  dots.SetValue(0, 1);  // set, but painted clear
  dots.Toggle(0);
  EXPECT_TRUE(dots.IsBlack(0));
  EXPECT_EQ(dots.Value(0), 1);
  dots.Paint(1, true);  // clear, but painted black
  dots.Toggle(1);
  EXPECT_FALSE(dots.IsBlack(1));
  EXPECT_EQ(dots.Value(1), 0);
}

template <typename Access>
void ExpectSubscriptError(Access access) {
  try {
    access();
    ADD_FAILURE() << "nothing was thrown";
  } catch (const std::out_of_range& error) {
    EXPECT_STREQ(error.what(), "Subscript out of range");
  }
}

TEST(DotPattern, AnIndexOutsideIsASubscriptError) {
  DotPattern dots(40, 40);
  ExpectSubscriptError([&] { dots.Value(1600); });
  ExpectSubscriptError([&] { dots.Value(-1); });
  ExpectSubscriptError([&] { dots.IsBlack(1600); });
  ExpectSubscriptError([&] { dots.IsVisible(1600); });
  ExpectSubscriptError([&] { dots.SetValue(1600, 1); });
  ExpectSubscriptError([&] { dots.Paint(1600, true); });
  ExpectSubscriptError([&] { dots.Show(1600, true); });
  ExpectSubscriptError([&] { dots.Mark(1600, true); });
  ExpectSubscriptError([&] { dots.Toggle(-1); });
  ExpectSubscriptError([&] { dots.HexByte(1593); });
  EXPECT_EQ(dots.HexByte(1592), "00");
}

}  // namespace
}  // namespace vantrel::editors
