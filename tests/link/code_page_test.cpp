// SPDX-License-Identifier: MIT

#include "link/code_page.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace vantrel::link {
namespace {

TEST(CodePageOfLocale, KnowsTheLanguagesWithAPageOfTheirOwn) {
  EXPECT_EQ(CodePageOfLocale("ja_JP.UTF-8"), CodePage::kJapanese);
  EXPECT_EQ(CodePageOfLocale("ja"), CodePage::kJapanese);
  EXPECT_EQ(CodePageOfLocale("ko_KR"), CodePage::kKorean);
  EXPECT_EQ(CodePageOfLocale("ko_KR.UTF-8"), CodePage::kKorean);
}

TEST(CodePageOfLocale, SetsSimplifiedAndTraditionalChineseApart) {
  EXPECT_EQ(CodePageOfLocale("zh_CN"), CodePage::kSimplifiedChinese);
  EXPECT_EQ(CodePageOfLocale("zh_CN.GB18030"), CodePage::kSimplifiedChinese);
  EXPECT_EQ(CodePageOfLocale("zh_SG"), CodePage::kSimplifiedChinese);
  EXPECT_EQ(CodePageOfLocale("zh"), CodePage::kSimplifiedChinese);
  EXPECT_EQ(CodePageOfLocale("zh_TW"), CodePage::kTraditionalChinese);
  EXPECT_EQ(CodePageOfLocale("zh_TW.UTF-8"), CodePage::kTraditionalChinese);
  EXPECT_EQ(CodePageOfLocale("zh_HK"), CodePage::kTraditionalChinese);
  EXPECT_EQ(CodePageOfLocale("zh_MO.UTF-8"), CodePage::kTraditionalChinese);
  EXPECT_EQ(CodePageOfLocale("zh-Hant"), CodePage::kTraditionalChinese);
}

TEST(CodePageOfLocale, IsWesternForEveryOtherName) {
  for (const char* name : {"", "C", "C.UTF-8", "POSIX", "de_DE", "en_US.UTF-8", "kok_IN", "kok"})
    EXPECT_EQ(CodePageOfLocale(name), CodePage::kWestern) << name;
}

// Sets the locale's environment variables for one case and puts back what was there.
class SystemCodePageTest : public testing::Test {
 protected:
  SystemCodePageTest() {
    for (Saved& saved : saved_) {
      const char* value = std::getenv(saved.name);
      if (value != nullptr) saved.value = value;
      unsetenv(saved.name);
    }
  }
  ~SystemCodePageTest() override {
    for (const Saved& saved : saved_) {
      if (saved.value)
        setenv(saved.name, saved.value->c_str(), 1);
      else
        unsetenv(saved.name);
    }
  }

 private:
  struct Saved {
    const char* name;
    std::optional<std::string> value;
  };
  Saved saved_[3] = {{"LC_ALL", {}}, {"LC_CTYPE", {}}, {"LANG", {}}};
};

TEST_F(SystemCodePageTest, IsWesternWhereNothingIsSet) {
  EXPECT_EQ(SystemCodePage(), CodePage::kWestern);
}

TEST_F(SystemCodePageTest, FollowsLang) {
  setenv("LANG", "ja_JP.UTF-8", 1);
  EXPECT_EQ(SystemCodePage(), CodePage::kJapanese);
}

TEST_F(SystemCodePageTest, PutsLcCtypeBeforeLang) {
  setenv("LANG", "ja_JP.UTF-8", 1);
  setenv("LC_CTYPE", "ko_KR.UTF-8", 1);
  EXPECT_EQ(SystemCodePage(), CodePage::kKorean);
}

TEST_F(SystemCodePageTest, PutsLcAllBeforeBoth) {
  setenv("LANG", "ja_JP.UTF-8", 1);
  setenv("LC_CTYPE", "ko_KR.UTF-8", 1);
  setenv("LC_ALL", "zh_TW.UTF-8", 1);
  EXPECT_EQ(SystemCodePage(), CodePage::kTraditionalChinese);
}

TEST_F(SystemCodePageTest, TakesAPlainCForAnAnswer) {
  setenv("LANG", "ja_JP.UTF-8", 1);
  setenv("LC_ALL", "C", 1);
  EXPECT_EQ(SystemCodePage(), CodePage::kWestern);
}

TEST_F(SystemCodePageTest, PassesOverEmptyVariables) {
  setenv("LC_ALL", "", 1);
  setenv("LC_CTYPE", "", 1);
  setenv("LANG", "zh_CN", 1);
  EXPECT_EQ(SystemCodePage(), CodePage::kSimplifiedChinese);
}

TEST(EncodeText, OfTextLongerThanOneConversionTakes) {
  // U+3042 is 82h A0h in the Japanese page.
  std::string text;
  std::string bytes;
  for (int i = 0; i < 1000; ++i) {
    text += "\u3042";
    bytes += "\x82\xA0";
  }
  EXPECT_EQ(EncodeText(text, CodePage::kJapanese), bytes);
}

TEST(EncodeText, PutsOneQuestionMarkForEachCharacterThePageLacks) {
  EXPECT_EQ(EncodeText("a\u3042\u3044z", CodePage::kWestern), "a??z");
  EXPECT_EQ(EncodeText("\U0001F600\U0001F600", CodePage::kKorean), "??");
}

TEST(EncodeText, PutsAQuestionMarkForEachByteThatIsNotUtf8) {
  EXPECT_EQ(EncodeText("\x80\xFFz", CodePage::kWestern), "??z");
  // A character cut off by the end of the text.
  EXPECT_EQ(EncodeText("a\xE3\x81", CodePage::kJapanese), "a??");
}

TEST(EncodeText, KeepsAZeroByte) {
  using namespace std::string_literals;
  EXPECT_EQ(EncodeText("a\0b"s, CodePage::kWestern), "a\0b"s);
}

TEST(DecodeBytes, LeavesBytesUpTo7FhAsTheyAreInEveryPage) {
  std::string ascii;
  for (int code = 0; code < 0x80; ++code) ascii += static_cast<char>(code);
  for (const CodePage page : {CodePage::kJapanese, CodePage::kSimplifiedChinese, CodePage::kKorean,
                              CodePage::kTraditionalChinese, CodePage::kWestern})
    EXPECT_EQ(DecodeBytes(ascii, page), ascii) << static_cast<int>(page);
}

TEST(DecodeBytes, ShowsAByteThatIsNoCharacterAsTheCharacterOfItsValue) {
  EXPECT_EQ(DecodeBytes("\x81\x8D\x8F\x90\x9D", CodePage::kWestern),
            "\u0081\u008D\u008F\u0090\u009D");
  EXPECT_EQ(DecodeBytes("\xC7\xD1", CodePage::kKorean), "\u00C7\u00D1");
}

TEST(DecodeBytes, TakesTheHalfWidthCharactersOfTheJapanesePage) {
  EXPECT_EQ(DecodeBytes("\xA1\xB1\xDF", CodePage::kJapanese), "\uFF61\uFF71\uFF9F");
}

TEST(DecodeBytes, MakesOneCharacterOfEveryByteOfEveryPage) {
  for (const CodePage page : {CodePage::kJapanese, CodePage::kSimplifiedChinese, CodePage::kKorean,
                              CodePage::kTraditionalChinese, CodePage::kWestern}) {
    for (int code = 0; code <= 0xFF; ++code) {
      const std::string character = DecodeBytes(std::string(1, static_cast<char>(code)), page);
      int starts = 0;  // bytes that begin a UTF-8 character
      for (const char byte : character)
        if ((static_cast<unsigned char>(byte) & 0xC0) != 0x80) ++starts;
      EXPECT_EQ(starts, 1) << static_cast<int>(page) << " " << code;
    }
  }
}

TEST(CodePageOfNumber, KnowsThePagesByTheirNumbers) {
  EXPECT_EQ(CodePageOfNumber(932), CodePage::kJapanese);
  EXPECT_EQ(CodePageOfNumber(936), CodePage::kSimplifiedChinese);
  EXPECT_EQ(CodePageOfNumber(949), CodePage::kKorean);
  EXPECT_EQ(CodePageOfNumber(950), CodePage::kTraditionalChinese);
  EXPECT_EQ(CodePageOfNumber(1252), CodePage::kWestern);
  for (const int number : {0, -1, 437, 65001}) EXPECT_EQ(CodePageOfNumber(number), std::nullopt);
}

}  // namespace
}  // namespace vantrel::link
