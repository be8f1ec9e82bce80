// SPDX-License-Identifier: MIT

#include "link/frame.h"

#include <gtest/gtest.h>

#include <string>

namespace vantrel::link {
namespace {

TEST(Frame, StxAndEtxAreTheProtocolsCharacters) {
  EXPECT_EQ(StxHex, "02");
  EXPECT_EQ(EtxHex, "03");
}

TEST(HexOf, WritesTwoUpperCaseDigits) {
  EXPECT_EQ(HexOf(0x00), "00");
  EXPECT_EQ(HexOf(0x05), "05");
  EXPECT_EQ(HexOf(0x0A), "0A");
  EXPECT_EQ(HexOf(0xC3), "C3");
  EXPECT_EQ(HexOf(0xFF), "FF");
}

TEST(HexPair, ReadsTheTwoDigitsAtAPosition) {
  EXPECT_EQ(HexPair("02C3", 0), 2U);
  EXPECT_EQ(HexPair("02C3", 2), 195U);
  EXPECT_EQ(HexPair("02C3", 1), 44U);
}

TEST(HexPair, TakesLowerCaseDigits) { EXPECT_EQ(HexPair("ff", 0), 255U); }

TEST(HexPair, TakesTheOneDigitThatIsLeft) {
  EXPECT_EQ(HexPair("02A", 2), 10U);
  EXPECT_EQ(HexPair("7", 0), 7U);
}

TEST(HexPair, IsZeroWhereNothingCanBeRead) {
  EXPECT_EQ(HexPair("", 0), 0U);
  EXPECT_EQ(HexPair("02", 2), 0U);
  EXPECT_EQ(HexPair("02", 100), 0U);
  EXPECT_EQ(HexPair("zz", 0), 0U);
  EXPECT_EQ(HexPair(" 5", 0), 0U);
}

TEST(HexPair, StopsAtTheFirstCharacterThatIsNoDigit) { EXPECT_EQ(HexPair("5z", 0), 5U); }

TEST(HexPair, StaysWithin0And255SoThatFramingGivesDecToBinNothingElse) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  unsigned expected = 0;
  for (int high = 0; high < 16; ++high)
    for (int low = 0; low < 16; ++low)
      EXPECT_EQ(HexPair(std::string{kDigits[high], kDigits[low]}, 0), expected++);
  EXPECT_EQ(HexPair("FFFF", 0), 255U);
}

TEST(HexTextOf, WritesTheBytesInOrder) {
  EXPECT_EQ(HexTextOf({0x02, 0x21, 0x03, 0x22}), "02210322");
  EXPECT_EQ(HexTextOf({0x00, 0x0A, 0xFF}), "000AFF");
  EXPECT_EQ(HexTextOf({}), "");
}

TEST(BytesOf, ReadsTheBytesInOrder) {
  EXPECT_EQ(BytesOf("02210322"), (Bytes{0x02, 0x21, 0x03, 0x22}));
  EXPECT_EQ(BytesOf("000AFF"), (Bytes{0x00, 0x0A, 0xFF}));
  EXPECT_EQ(BytesOf(""), Bytes{});
}

TEST(BytesOf, SevenCharactersGiveFourBytesTheLastFromOneDigit) {
  EXPECT_EQ(BytesOf("022103A"), (Bytes{0x02, 0x21, 0x03, 0x0A}));
}

TEST(BytesOf, FiveCharactersGiveTwoBytes) { EXPECT_EQ(BytesOf("0221F"), (Bytes{0x02, 0x21})); }

TEST(BytesOf, HalvesGoToTheEvenNumberOfBytes) {
  EXPECT_EQ(BytesOf("0").size(), 0U);
  EXPECT_EQ(BytesOf("022").size(), 2U);
  EXPECT_EQ(BytesOf("022103220").size(), 4U);
  EXPECT_EQ(BytesOf("02210322012").size(), 6U);
}

TEST(SpacedPairs, PutsABlankBehindEachPair) {
  EXPECT_EQ(SpacedPairs("02210322"), "02 21 03 22 ");
  EXPECT_EQ(SpacedPairs("02"), "02 ");
  EXPECT_EQ(SpacedPairs(""), "");
}

TEST(SpacedPairs, ShowsALoneLastDigit) { EXPECT_EQ(SpacedPairs("0221F"), "02 21 F "); }

TEST(ComposeFrame, OfACommandWithoutData) {
  EXPECT_EQ(ComposeFrame("21"), "02210322");
  EXPECT_EQ(ComposeFrame("22"), "02220321");
  EXPECT_EQ(ComposeFrame("40"), "02400343");
  EXPECT_EQ(ComposeFrame("49"), "0249034A");
  EXPECT_EQ(ComposeFrame("51"), "02510352");
  EXPECT_EQ(ComposeFrame("58"), "0258035B");
  EXPECT_EQ(ComposeFrame("5F"), "025F035C");
}

TEST(ComposeFrame, OfACommandWithData) {
  // 25h ^ 41h ^ 31h ^ 03h = 56h.
  EXPECT_EQ(ComposeFrame("25", "4131"), "022541310356");
  // 46h ^ 32h ^ 03h = 77h.
  EXPECT_EQ(ComposeFrame("46", "32"), "0246320377");
}

TEST(ComposeFrame, OfDataThatHoldEtxAndHighBytes) {
  // 4Bh ^ 03h ^ FFh ^ 03h = B4h: an ETX among the data cancels the last one out.
  EXPECT_EQ(ComposeFrame("4B", "03FF"), "024B03FF03B4");
}

}  // namespace
}  // namespace vantrel::link
