// SPDX-License-Identifier: MIT

#include "printer/drawing/fonts.h"

#include "tests/support/file_folder.h"
#include "tests/support/print_bench.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

#include <filesystem>
#include <string>

namespace vantrel::printer {
namespace {

TEST(Fonts, AreAllHere) { EXPECT_THAT(support::InstalledFonts().Missing(), testing::IsEmpty()); }

TEST(Fonts, DrawWhatTerminusLacksWithUnifont) {
  // U+5B57, "character", as Unifont has it.
  EXPECT_EQ(support::PartOf(support::InstalledFonts().Glyph(0x5B57, {16, true, 0}), 0, 0, 16, 5),
            (support::Dots{"......#.........",  //
                           ".......#........",  //
                           ".##############.",  //
                           ".#............#.",  //
                           "#............#.."}));
}

TEST(Fonts, DrawLargerWideCharactersFromTheSameDots) {
  const Bitmap& large = support::InstalledFonts().Glyph(0x5B57, {24, true, 0});
  EXPECT_EQ(large.Width(), 24);
  EXPECT_EQ(large.Height(), 24);
  // A row of 14 dots becomes one of 21 or so.
  int longest = 0;
  for (int y = 0; y < 24; ++y) {
    int black = 0;
    for (int x = 0; x < 24; ++x) black += large.At(x, y) ? 1 : 0;
    longest = std::max(longest, black);
  }
  EXPECT_GE(longest, 20);
  EXPECT_LE(longest, 23);
}

TEST(Fonts, DrawABoxForACharacterThatNoneHas) {
  support::Dots box(16, ".#....#.");
  box.front() = box.back() = "........";
  box[1] = box[14] = ".######.";
  EXPECT_EQ(support::PartOf(support::InstalledFonts().Glyph(0x10FFFD, {16, false, 0}), 0, 0, 8, 16),
            box);
}

TEST(Fonts, SayWhichPackagesAreMissingAndDrawBoxes) {
  Fonts fonts("/nonexistent");
  EXPECT_THAT(
      fonts.Missing(),
      testing::ElementsAre(
          "Cards are printed without the font /nonexistent/opentype/terminus/terminus-normal.otb; "
          "please install the package fonts-terminus-otb.",
          "Cards are printed without the font /nonexistent/opentype/terminus/terminus-bold.otb; "
          "please install the package fonts-terminus-otb.",
          "Cards are printed without the font /nonexistent/opentype/unifont/unifont.otf; "
          "please install the package fonts-unifont."));
  EXPECT_EQ(support::PartOf(fonts.Glyph('F', {16, false, 2}), 0, 0, 8, 3),
            (support::Dots{"........", ".######.", ".#....#."}));
}

TEST(Fonts, MissAFileThatIsNoFont) {
  const support::FileFolder folder;
  std::filesystem::create_directories(folder.Path("opentype/terminus/terminus-bold.otb"));
  folder.Make("opentype/terminus/terminus-normal.otb", "no font");
  const Fonts fonts(folder.Path(""));
  EXPECT_EQ(fonts.Missing().size(), 3U);
}

TEST(Fonts, DrawBoxesForAFontThatIsDamagedWithin) {
  const support::FileFolder folder;
  std::filesystem::create_directories(folder.Path("opentype/terminus"));
  // A table of contents that promises 14 tables, and nothing behind it.
  folder.Make("opentype/terminus/terminus-normal.otb", std::string("\0\1\0\0\0\x0E", 6));
  Fonts fonts(folder.Path(""));
  EXPECT_EQ(fonts.Missing().size(), 2U);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(
        support::PartOf(fonts.Glyph(static_cast<char32_t>('F' + i), {16, false, 0}), 0, 0, 8, 3),
        (support::Dots{"........", ".######.", ".#....#."}));
  }
}

}  // namespace
}  // namespace vantrel::printer
