// SPDX-License-Identifier: MIT

#include "link/code_page.h"

#include <gtest/gtest.h>

namespace vantrel::link {
namespace {

using Characters = std::vector<CodedCharacter>;

// The codes are those of the code pages' published tables.
TEST(DecodeCharacters, TakesAsciiByteByByteInEveryPage) {
  for (const CodePage page : {CodePage::kJapanese, CodePage::kKorean, CodePage::kWestern})
    EXPECT_EQ(DecodeCharacters("A~", page), (Characters{{U'A', 1}, {U'~', 1}}));
}

TEST(DecodeCharacters, TakesTwoBytesWhereThePageHasSuchCharacters) {
  EXPECT_EQ(DecodeCharacters("\x8A\xBF", CodePage::kJapanese), (Characters{{U'漢', 2}}));
  // The extensions of the page begin with bytes up to FCh: FAh 40h is U+2170, FCh 4Bh U+9ED1.
  EXPECT_EQ(DecodeCharacters("\xFA\x40\xFC\x4B", CodePage::kJapanese),
            (Characters{{U'\u2170', 2}, {U'\u9ED1', 2}}));
  EXPECT_EQ(DecodeCharacters("\xBA\xBA", CodePage::kSimplifiedChinese), (Characters{{U'汉', 2}}));
  EXPECT_EQ(DecodeCharacters("\xC7\xD1", CodePage::kKorean), (Characters{{U'한', 2}}));
  EXPECT_EQ(DecodeCharacters("\xBA\x7E", CodePage::kTraditionalChinese), (Characters{{U'漢', 2}}));
  EXPECT_EQ(DecodeCharacters("\xE9\x80", CodePage::kWestern), (Characters{{U'é', 1}, {U'€', 1}}));
}

TEST(DecodeCharacters, TakesHalfWidthKatakanaAsOneByte) {
  EXPECT_EQ(DecodeCharacters("\xB6", CodePage::kJapanese), (Characters{{U'\uFF76', 1}}));
}

TEST(DecodeCharacters, MarksWhatThePageLacks) {
  EXPECT_EQ(DecodeCharacters("\x87\xFC", CodePage::kJapanese), (Characters{{0xFFFD, 2}}));
  EXPECT_EQ(DecodeCharacters("\x81", CodePage::kWestern), (Characters{{0x81, 1}}));
}

TEST(DecodeCharacters, TakesALeadByteWithoutASecondAlone) {
  EXPECT_EQ(DecodeCharacters("\x8A", CodePage::kJapanese), (Characters{{0x8A, 1}}));
  EXPECT_EQ(DecodeCharacters("\x8A\x20", CodePage::kJapanese), (Characters{{0x8A, 1}, {U' ', 1}}));
}

}  // namespace
}  // namespace vantrel::link
