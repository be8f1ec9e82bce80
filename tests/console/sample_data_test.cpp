// SPDX-License-Identifier: MIT

// Which writing of a date or time a track's sample data carry.

#include "console/sample_data.h"

#include <gtest/gtest.h>

namespace vantrel::console {
namespace {

const CharacterRange kAnyLetters = CharacterRange::Parse("01h - 7Eh");
const CharacterRange kCapitals = CharacterRange::Parse("20h - 5Eh");
const CharacterRange kDigits = CharacterRange::Parse("30h - 3Eh");

TEST(CharacterRange, ReadsItsBoundsFromTheText) {
  EXPECT_EQ(kAnyLetters.lowest, 0x01U);
  EXPECT_EQ(kAnyLetters.highest, 0x7EU);
  EXPECT_EQ(kCapitals.lowest, 0x20U);
  EXPECT_EQ(kCapitals.highest, 0x5EU);
}

TEST(CharacterRange, TakesItsBoundsAndNothingBeyond) {
  EXPECT_TRUE(kDigits.Takes("0>"));
  EXPECT_FALSE(kDigits.Takes("/"));
  EXPECT_FALSE(kDigits.Takes("?"));
  EXPECT_FALSE(kDigits.Takes("12 34"));
  EXPECT_TRUE(kDigits.Takes(""));
}

TEST(CharacterRange, NeverTakesStartOrEndOfAFrame) {
  EXPECT_TRUE(kAnyLetters.Takes("\x01\x04\x7E"));
  EXPECT_FALSE(kAnyLetters.Takes("a\x02"));
  EXPECT_FALSE(kAnyLetters.Takes("\x03z"));
}

TEST(CharacterRange, TakesNoCharacterBeyond7Eh) {
  EXPECT_FALSE(kAnyLetters.Takes("\x7F"));
  EXPECT_FALSE(kAnyLetters.Takes("\u00E9"));
  EXPECT_FALSE(kAnyLetters.Takes("\u65E5"));
}

TEST(SampleTime, KeepsTheSystemsWriting) {
  EXPECT_EQ(SampleTime({"20.11.26", "2026-11-20"}, kAnyLetters), "20.11.26");
  EXPECT_EQ(SampleTime({"20 Nov 2026", "2026-11-20"}, kAnyLetters), "20 Nov 2026");
  EXPECT_EQ(SampleTime({"9:05:03 PM", "21:05:03"}, kCapitals), "9:05:03 PM");
}

TEST(SampleTime, WritesSmallLettersInCapitalsWhereTheRangeLacksThem) {
  EXPECT_EQ(SampleTime({"20 Nov 2026", "2026-11-20"}, kCapitals), "20 NOV 2026");
  EXPECT_EQ(SampleTime({"9:05:03 p.m.", "21:05:03"}, kCapitals), "9:05:03 P.M.");
}

TEST(SampleTime, WritesPlainBlanksForOtherBlanks) {
  EXPECT_EQ(SampleTime({"9:05:03\u202FPM", "21:05:03"}, kCapitals), "9:05:03 PM");
  EXPECT_EQ(SampleTime({"9:05:03\u00A0PM", "21:05:03"}, kAnyLetters), "9:05:03 PM");
  EXPECT_EQ(SampleTime({"20.\u200911.\u20092026", "2026-11-20"}, kCapitals), "20. 11. 2026");
}

TEST(SampleTime, IsNumericWhereTheWritingHasOtherCharacters) {
  EXPECT_EQ(SampleTime({"21\u664205\u520603\u79D2", "21:05:03"}, kAnyLetters), "21:05:03");
  EXPECT_EQ(SampleTime({"20 d\u00E9c. 2026", "2026-12-20"}, kCapitals), "2026-12-20");
  EXPECT_EQ(SampleTime({"20/11/\u0662\u0660", "2026-11-20"}, kAnyLetters), "2026-11-20");
  // Between 5Eh and the small letters: no capital stands for it.
  EXPECT_EQ(SampleTime({"20_11_26", "2026-11-20"}, kCapitals), "2026-11-20");
}

TEST(SampleTime, IsNumericWhereTheWritingIsLongerThan21Characters) {
  EXPECT_EQ(SampleTime({"123456789012345678901", "2026-11-20"}, kCapitals),
            "123456789012345678901");
  EXPECT_EQ(SampleTime({"1234567890123456789012", "2026-11-20"}, kCapitals), "2026-11-20");
}

}  // namespace
}  // namespace vantrel::console
