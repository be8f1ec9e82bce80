// SPDX-License-Identifier: MIT

#include "printer/service/script_text.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace vantrel::printer {
namespace {

using Parts = std::pair<std::string_view, std::string_view>;

TEST(ScriptText, SplitsTheFirstWordOff) {
  EXPECT_EQ(Split("track  1 A  B "), Parts("track", "1 A  B "));
  EXPECT_EQ(Split("  state"), Parts("state", ""));
  EXPECT_EQ(Split("   "), Parts("", ""));
  EXPECT_EQ(Split("\tspeed \t9600"), Parts("speed", "9600"));
}

TEST(ScriptText, TrimsBlanks) {
  EXPECT_EQ(Trimmed(" \t a b\t "), "a b");
  EXPECT_EQ(Trimmed(" \t "), "");
}

TEST(ScriptText, ReadsPathsOfAnyBytes) {
  EXPECT_EQ(PathIn(" a b.png "), "a b.png");
  EXPECT_EQ(PathIn("\" a \""), " a ");
  EXPECT_EQ(PathIn("\"a\"b\""), "a\"b");
  EXPECT_EQ(PathIn("a\"b"), "a\"b");
  EXPECT_EQ(PathIn("\xE4"), "\xE4");
  for (const char* text : {"", "  ", "\"", "\"\"", "\"a"})
    EXPECT_EQ(PathIn(text), std::nullopt) << text;
  EXPECT_EQ(PathIn(std::string_view("a\0b", 3)), std::nullopt);
}

TEST(ScriptText, ReadsWholeNumbersAlone) {
  EXPECT_EQ(NumberIn("010"), 10);
  EXPECT_EQ(NumberIn("-1"), -1);
  for (const char* text : {"", "1 ", " 1", "1x", "+1", "2147483648"})
    EXPECT_EQ(NumberIn(text), std::nullopt) << text;
}

TEST(ScriptText, ReadsCodes) {
  EXPECT_EQ(CodeIn("4e"), 0x4E);
  EXPECT_EQ(CodeIn("4Eh"), 0x4E);
  EXPECT_EQ(CodeIn("00H"), 0x00);
  for (const char* text : {"", "4", "h", "4h", "-1", "041", "4G", "41hh"})
    EXPECT_EQ(CodeIn(text), std::nullopt) << text;
}

TEST(ScriptText, ReadsTracks) {
  EXPECT_EQ(TrackIn("1"), 0U);
  EXPECT_EQ(TrackIn("3"), 2U);
  for (const char* text : {"", "0", "4", "11"}) EXPECT_EQ(TrackIn(text), std::nullopt) << text;
}

TEST(ScriptText, WritesEveryByteSoThatItIsReadAgain) {
  EXPECT_EQ(Escaped(std::string("\x00 ~\x7F\xFF\\", 6)), "\\x00 ~\\x7F\\xFF\\\\");
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  EXPECT_EQ(Unescaped(Escaped(all)), all);
  for (const char* text : {"\\", "\\x", "\\x4", "\\x4g", "\\x-1", "\\n", "a\\"})
    EXPECT_EQ(Unescaped(text), std::nullopt) << text;
}

}  // namespace
}  // namespace vantrel::printer
