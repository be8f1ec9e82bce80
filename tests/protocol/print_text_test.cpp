// SPDX-License-Identifier: MIT

#include "protocol/print_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vantrel::protocol {
namespace {

using namespace std::string_literals;

bool IsTaken(const std::string& text, bool vertical = true) {
  return ParsePrintText(text, vertical).has_value();
}

bool Takes(const std::string& sequence, bool vertical = true) {
  return IsTaken("\x1B" + sequence, vertical);
}

TEST(PrintText, FallsIntoCharactersReturnsFeedsAndSequences) {
  const std::string text =
      "Test\r\n\x1B"
      "E22More";
  const auto items = ParsePrintText(text, true);
  ASSERT_TRUE(items);
  EXPECT_EQ(
      *items,
      (std::vector<TextItem>{
          {'\0', 0, "Test"}, {'\r', 0, ""}, {'\n', 0, ""}, {'E', 22, ""}, {'\0', 0, "More"}}));
}

TEST(PrintText, ReadsHexAndDecimalValues) {
  const auto items = ParsePrintText("\x1BGC\x1BS09\x1BX0055", true);
  ASSERT_TRUE(items);
  // The digit behind the three of ESC X is a character.
  EXPECT_EQ(*items,
            (std::vector<TextItem>{{'G', 12, ""}, {'S', 9, ""}, {'X', 5, ""}, {'\0', 0, "5"}}));
}

TEST(PrintText, MayBeEmpty) { EXPECT_TRUE(IsTaken("")); }

TEST(PrintText, TakesTheEighteenSequencesAtTheEndsOfTheirRanges) {
  for (const char* sequence :
       {"E11", "E12", "E21", "E22", "G0",  "GF",  "g0",  "gF", "I0",   "IF",   "i0",   "iF",  "D0",
        "DF",  "d0",  "dF",  "S00", "S29", "s00", "s59", "B0", "B2",   "F0",   "F1",   "J0",  "J1",
        "L00", "L19", "M0",  "MF",  "V1",  "V2",  "W1",  "W2", "X000", "X319", "Y000", "Y479"}) {
    EXPECT_TRUE(Takes(sequence)) << sequence;
  }
  EXPECT_TRUE(Takes("X479", false));
  EXPECT_TRUE(Takes("Y319", false));
}

TEST(PrintText, TakesEitherCaseOfTheLettersThatHaveNoSecondMeaning) {
  for (const char* sequence : {"e11", "b0", "f0", "j0", "l00", "m0", "v1", "w1", "x000", "y000"}) {
    EXPECT_TRUE(Takes(sequence)) << sequence;
  }
}

TEST(PrintText, TakesNoValueOutsideItsRange) {
  for (const char* sequence :
       {"E00", "E10", "E13", "E20", "E23", "E33", "GG",   "S30",  "s60",  "B3",  "F2", "J2",
        "L20", "MG",  "V0",  "V3",  "W0",  "W3",  "X320", "Y480", "X-01", "S0A", "L 1"}) {
    EXPECT_FALSE(Takes(sequence)) << sequence;
  }
  EXPECT_FALSE(Takes("X480", false));
  EXPECT_FALSE(Takes("Y320", false));
}

TEST(PrintText, TakesNoSequenceCutShort) {
  for (const char* sequence : {"", "E", "E1", "G", "S0", "X00", "Y"}) {
    EXPECT_FALSE(Takes(sequence)) << sequence;
  }
}

TEST(PrintText, TakesNoUnknownSequence) {
  for (const char* sequence : {"A0", "Z0", "10", "\x1B", "H1", "K1", "\x80"}) {
    EXPECT_FALSE(Takes(sequence)) << sequence;
  }
}

TEST(PrintText, TakesNoOtherControlCharacter) {
  EXPECT_FALSE(IsTaken("a\tb"));
  EXPECT_FALSE(IsTaken("a\0b"s));
  EXPECT_FALSE(IsTaken("\x07"));
}

TEST(EscapeDigits, AreThoseOfTheLettersInTheirCases) {
  for (const char letter : "BbDdFfGgIiJjMmVvWw"s) EXPECT_EQ(EscapeDigits(letter), 1U) << letter;
  for (const char letter : "EeLlSs"s) EXPECT_EQ(EscapeDigits(letter), 2U) << letter;
  for (const char letter : "XxYy"s) EXPECT_EQ(EscapeDigits(letter), 3U) << letter;
  for (const char letter : "AaZz1\x1B"s) EXPECT_EQ(EscapeDigits(letter), 0U) << letter;
}

}  // namespace
}  // namespace vantrel::protocol
