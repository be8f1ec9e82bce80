// SPDX-License-Identifier: MIT

#include "printer/drawing/print_text.h"

#include "tests/support/installed_fonts.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace vantrel::printer {
namespace {

// How far two blanks behind ESC J0 clear a black line: 16 dots as one-byte characters of 16 dots'
// height, 32 as wide ones.
int ClearedByTwoBlanks(link::CodePage code_page) {
  Bitmap face(kFaceWidth, kFaceHeight);
  for (int x = 0; x < kFaceWidth; ++x) face.Set(x, 10, true);
  Page page(face, '1');
  const PrintRegisters registers;
  const auto items = protocol::ParsePrintText(
      "\x1B"
      "F0\x1BJ0  ",
      false);
  DrawPrintText(page, {support::InstalledFonts(), registers, code_page, 0, 15}, *items);
  int x = 0;
  while (!face.At(x, 10)) ++x;
  return x;
}

TEST(PrintText, HasWideFormsOfOneByteCharactersInTheJapaneseCodePageAlone) {
  EXPECT_EQ(ClearedByTwoBlanks(link::CodePage::kJapanese), 32);
  EXPECT_EQ(ClearedByTwoBlanks(link::CodePage::kKorean), 16);
  EXPECT_EQ(ClearedByTwoBlanks(link::CodePage::kWestern), 16);
}

TEST(PrintText, DrawsTwoByteCharactersAsWideAsHigh) {
  Bitmap face(kFaceWidth, kFaceHeight);
  Page page(face, '1');
  const PrintRegisters registers;
  const auto items = protocol::ParsePrintText("\x8E\x9A", false);
  DrawPrintText(page, {support::InstalledFonts(), registers, link::CodePage::kJapanese, 0, 23},
                *items);
  const Bitmap& glyph = support::InstalledFonts().Glyph(0x5B57, {24, true, 0});
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
    const auto items = protocol::ParsePrintText(text, protocol::IsVertical(direction));
    if (!items) continue;
    ++drawn;
    Bitmap face(kFaceWidth, kFaceHeight);
    Page page(face, direction);
    constexpr link::CodePage kPages[] = {link::CodePage::kJapanese, link::CodePage::kKorean,
                                         link::CodePage::kWestern};
    DrawPrintText(page, {support::InstalledFonts(), registers, kPages[random() % 3], 10, 100},
                  *items);
  }
  EXPECT_GT(drawn, 50);
}

}  // namespace
}  // namespace vantrel::printer
