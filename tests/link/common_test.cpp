// SPDX-License-Identifier: MIT

#include "link/common.h"

#include "link/frame.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace vantrel::link {
namespace {

TEST(CalcBCC, OfA21hFrameWithoutAndWithItsBlockCheck) {
  EXPECT_EQ(CalcBCC("022103"), "22");
  // The block check taken in by mistake cancels itself out.
  EXPECT_EQ(CalcBCC("02210322"), "00");
}

TEST(CalcBCC, Of51hIs52hAlthoughItsHelpTextSays50h) { EXPECT_EQ(CalcBCC("025103"), "52"); }

TEST(CalcBCC, OfFramesThatTheConsoleSends) {
  EXPECT_EQ(CalcBCC("022203"), "21");
  EXPECT_EQ(CalcBCC("024003"), "43");
  EXPECT_EQ(CalcBCC("024903"), "4A");
  EXPECT_EQ(CalcBCC("025803"), "5B");
  EXPECT_EQ(CalcBCC("025F03"), "5C");
  EXPECT_EQ(CalcBCC("02313703"), "05");
  EXPECT_EQ(CalcBCC("02463203"), "77");
}

TEST(CalcBCC, OfAnOddFrameTakesTheLastDigitAlone) { EXPECT_EQ(CalcBCC("02213"), "22"); }

TEST(CalcBCC, OfTwoCharactersOrFewerIs00) {
  EXPECT_EQ(CalcBCC("02"), "00");
  EXPECT_EQ(CalcBCC("0"), "00");
  EXPECT_EQ(CalcBCC(""), "00");
}

TEST(DecToBin, WritesTheLowEightBits) {
  EXPECT_EQ(DecToBin(0), "00000000");
  EXPECT_EQ(DecToBin(3), "00000011");
  EXPECT_EQ(DecToBin(67), "01000011");
  EXPECT_EQ(DecToBin(255), "11111111");
  EXPECT_EQ(DecToBin(256), "00000000");
}

TEST(DecToBin, KeepsTheSignOfEachRemainderOfANegativeNumber) {
  EXPECT_EQ(DecToBin(-1), "000000-1");
  EXPECT_EQ(DecToBin(-3), "0000-1-1");
}

TEST(BinToDec, SumsPlaceValues) {
  EXPECT_EQ(BinToDec("01000011"), "67");
  EXPECT_EQ(BinToDec(" 1111 "), "15");
  EXPECT_EQ(BinToDec(""), "0");
}

TEST(BinToDec, WeightsAnyDecimalDigit) {
  EXPECT_EQ(BinToDec("2"), "2");
  EXPECT_EQ(BinToDec("20"), "4");
}

TEST(BinToDec, OverflowOf32BitsIsAnError) {
  EXPECT_EQ(BinToDec(std::string(31, '1')), "2147483647");
  EXPECT_THROW(BinToDec("1" + std::string(31, '0')), std::overflow_error);
}

TEST(StrToHex, OfPlainText) {
  EXPECT_EQ(StrToHex("", CodePage::kWestern), "");
  EXPECT_EQ(StrToHex("A1", CodePage::kWestern), "4131");
  EXPECT_EQ(StrToHex("\t", CodePage::kWestern), "09");
  // Codes 99 and 100 stand on either side of the change from two to three decimal digits.
  EXPECT_EQ(StrToHex("cd", CodePage::kWestern), "6364");
}

TEST(StrToHex, GivesTwoDigitsToASingleByteCharacterAbove7Fh) {
  EXPECT_EQ(StrToHex("\u00E9\u00FF\u20AC", CodePage::kWestern), "E9FF80");
}

TEST(StrToHex, GivesFourDigitsToADoubleByteCharacter) {
  // In code page 932 the character U+65E5 is the bytes 93h FAh; U+FF71, half-width, is B1h alone.
  EXPECT_EQ(StrToHex("A\u65E5\uFF71", CodePage::kJapanese), "4193FAB1");
  // U+4E2D: D6h D0h in 936, A4h A4h in 950; U+D55C: C7h D1h in 949.
  EXPECT_EQ(StrToHex("\u4E2D", CodePage::kSimplifiedChinese), "D6D0");
  EXPECT_EQ(StrToHex("\u4E2D", CodePage::kTraditionalChinese), "A4A4");
  EXPECT_EQ(StrToHex("\uD55C", CodePage::kKorean), "C7D1");
}

TEST(HexOutput, IsUpperCaseEverywhere) {
  EXPECT_EQ(HexOf(0xAB), "AB");
  EXPECT_EQ(HexTextOf({0xCD, 0xEF}), "CDEF");
  EXPECT_EQ(CalcBCC("022A03FC"), "D5");  // 2Ah ^ 03h ^ FCh
  EXPECT_EQ(StrToHex("\u00EF", CodePage::kWestern), "EF");
  EXPECT_EQ(StrToHex("\n", CodePage::kWestern), "0A");
  EXPECT_EQ(ComposeFrame("5F"), "025F035C");
}

TEST(StrToHex, SendsAQuestionMarkForWhatTheCodePageLacks) {
  EXPECT_EQ(StrToHex("a\u65E5b", CodePage::kWestern), "613F62");
  EXPECT_EQ(StrToHex("\U0001F600", CodePage::kJapanese), "3F");
  EXPECT_EQ(StrToHex("a\xFFz", CodePage::kWestern), "613F7A");
}

}  // namespace
}  // namespace vantrel::link
