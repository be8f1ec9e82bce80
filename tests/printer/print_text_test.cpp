#include "printer/print_text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace vantrel {
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

// How far two blanks behind ESC J0 clear a black line: 16 dots as one-byte characters of 16 dots'
// height, 32 as wide ones.
int ClearedByTwoBlanks(CodePage code_page) {
  Bitmap face(kFaceWidth, kFaceHeight);
  for (int x = 0; x < kFaceWidth; ++x) face.Set(x, 10, true);
  Page page(face, '1');
  const PrintRegisters registers;
  const auto items = ParsePrintText(
      "\x1B"
      "F0\x1BJ0  ",
      false);
  DrawPrintText(page, {SystemFonts(), registers, code_page, 0, 15}, *items);
  int x = 0;
  while (!face.At(x, 10)) ++x;
  return x;
}

TEST(PrintText, HasWideFormsOfOneByteCharactersInTheJapaneseCodePageAlone) {
  EXPECT_EQ(ClearedByTwoBlanks(CodePage::kJapanese), 32);
  EXPECT_EQ(ClearedByTwoBlanks(CodePage::kKorean), 16);
  EXPECT_EQ(ClearedByTwoBlanks(CodePage::kWestern), 16);
}

TEST(PrintText, DrawsTwoByteCharactersAsWideAsHigh) {
  Bitmap face(kFaceWidth, kFaceHeight);
  Page page(face, '1');
  const PrintRegisters registers;
  const auto items = ParsePrintText("\x8E\x9A", false);
  DrawPrintText(page, {SystemFonts(), registers, CodePage::kJapanese, 0, 23}, *items);
  const Bitmap& glyph = SystemFonts().Glyph(0x5B57, {24, true, 0});
  for (int y = 0; y < 24; ++y) {
    for (int x = 0; x < 24; ++x) EXPECT_EQ(face.At(x, y), glyph.At(x, y)) << x << ", " << y;
  }
}

// Whatever the bytes, drawing ends and stays on the card.
TEST(PrintText, SurvivesAnyBytes) {
  std::mt19937 random(41);
  const std::string alphabet = "\x1B\x1B\x1B\r\nEGgIiDdSsBFJLMVWXY0123456789Ff A\x81\x40\xE0\xFF";
  const PrintRegisters registers;
  int drawn = 0;
  for (int round = 0; round < 3000; ++round) {
    std::string text(random() % 60, ' ');
    for (char& character : text) character = alphabet[random() % alphabet.size()];
    const char direction = static_cast<char>('0' + random() % 4);
    const auto items = ParsePrintText(text, IsVertical(direction));
    if (!items) continue;
    ++drawn;
    Bitmap face(kFaceWidth, kFaceHeight);
    Page page(face, direction);
    constexpr CodePage kPages[] = {CodePage::kJapanese, CodePage::kKorean, CodePage::kWestern};
    DrawPrintText(page, {SystemFonts(), registers, kPages[random() % 3], 10, 100}, *items);
  }
  EXPECT_GT(drawn, 50);
}

}  // namespace
}  // namespace vantrel
