// SPDX-License-Identifier: MIT

#include "printer/model/quoted.h"

#include <gtest/gtest.h>

namespace vantrel::printer {
namespace {

TEST(Quoted, ShowsAtMostSixtyCharacters) {
  EXPECT_EQ(Quoted("ab"), "\"ab\"");
  EXPECT_EQ(Quoted("ab", '\''), "'ab'");
  EXPECT_EQ(Quoted(""), "\"\"");
  EXPECT_EQ(Quoted(std::string(60, 'x')), '"' + std::string(60, 'x') + '"');
  EXPECT_EQ(Quoted(std::string(61, 'x')), '"' + std::string(60, 'x') + "...\"");
}

TEST(Quoted, CountsCharactersAndCutsNone) {
  std::string text;
  for (int i = 0; i < 61; ++i) text += "\xC3\xA4";
  EXPECT_EQ(Quoted(text), '"' + text.substr(0, 120) + "...\"");
}

TEST(Quoted, ShowsWhatIsNotPrintableAsHex) {
  EXPECT_EQ(Quoted(std::string_view("\0\x1F\x7F", 3)), "\"\\x00\\x1F\\x7F\"");
  EXPECT_EQ(Quoted("\xFF\xC3"), "\"\\xFF\\xC3\"");
}

}  // namespace
}  // namespace vantrel::printer
