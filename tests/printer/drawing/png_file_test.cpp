// SPDX-License-Identifier: MIT

#include "printer/drawing/png_file.h"

#include "tests/support/print_bench.h"

#include <gtest/gtest.h>

#include <string>

namespace vantrel::printer {
namespace {

std::string BytesOf(std::string_view hex) {
  std::string bytes;
  for (std::size_t i = 0; i < hex.size(); i += 2)
    bytes += static_cast<char>(std::stoi(std::string(hex.substr(i, 2)), nullptr, 16));
  return bytes;
}

// Three by two pixels of eight bits: 0, 127, 128; 255, 128, 127.
constexpr std::string_view kGrey =
    "89504E470D0A1A0A0000000D4948445200000003000000020800000000B81F39C6000000104944415478DA6360A86F"
    "60"
    "F8DF500F0009FE02FE19DA49F60000000049454E44AE426082";
// Four pixels in a row: red, green, blue, yellow.
constexpr std::string_view kColours =
    "89504E470D0A1A0A0000000D4948445200000004000000010802000000765E989A000000124944415478DA63F8CFC0"
    "C0"
    "00C6FFFF3300001CF004FC63A33EAD0000000049454E44AE426082";

TEST(PngFile, IsBlackWhereAPixelIsDarkerThanMiddleGrey) {
  const auto grey = DotsOfPng(BytesOf(kGrey));
  ASSERT_TRUE(grey);
  EXPECT_EQ(support::PartOf(*grey, 0, 0, 3, 2), (support::Dots{"##.", "..#"}));
  const auto colours = DotsOfPng(BytesOf(kColours));
  ASSERT_TRUE(colours);
  EXPECT_EQ(support::PartOf(*colours, 0, 0, 4, 1), (support::Dots{"###."}));
}

TEST(PngFile, TellsItsSizeFromItsBeginning) {
  const auto size = SizeOfPng(BytesOf(kGrey.substr(0, 2 * 45)));
  ASSERT_TRUE(size);
  EXPECT_EQ(size->width, 3);
  EXPECT_EQ(size->height, 2);
}

TEST(PngFile, IsNoneWhereItIsCutOrSomethingElse) {
  EXPECT_FALSE(DotsOfPng(BytesOf(kGrey.substr(0, 2 * 45))));
  for (const char* file : {"", "ABC", "\x89PNG\r\n\x1A\n"}) {
    EXPECT_FALSE(SizeOfPng(file));
    EXPECT_FALSE(DotsOfPng(file));
  }
}

TEST(PngFile, HasOneBitADot) {
  const std::string file = PngOf(Bitmap(480, 320));
  // The signature; a header of 13 bytes: 480 by 320, 1 bit, colours from a palette.
  EXPECT_EQ(file.substr(0, 26), BytesOf("89504E470D0A1A0A0000000D49484452000001E0000001400103"));
}

TEST(PngFile, KeepsEveryDot) {
  Bitmap dots(11, 3);
  dots.Set(0, 0, true);
  dots.Set(10, 1, true);
  dots.Set(8, 2, true);
  EXPECT_EQ(DotsOfPng(PngOf(dots)), dots);
}

}  // namespace
}  // namespace vantrel::printer
