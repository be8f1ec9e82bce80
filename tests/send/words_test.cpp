// SPDX-License-Identifier: MIT

#include "send/words.h"

#include "commandline/parse.h"

#include <gtest/gtest.h>

namespace vantrel::send {
namespace {

using Words = std::vector<std::string>;

TEST(WordsOfALine, AreSplitByBlanks) {
  EXPECT_EQ(WordsOf("41 --x 5\tTest"), (Words{"41", "--x", "5", "Test"}));
  EXPECT_EQ(WordsOf("  58  \r"), Words{"58"});
}

TEST(WordsOfALine, AreHeldTogetherByQuotes) {
  EXPECT_EQ(WordsOf("41 'a b'\"c d\"e"), (Words{"41", "a bc de"}));
  EXPECT_EQ(WordsOf("35 '' \"\""), (Words{"35", "", ""}));
  EXPECT_EQ(WordsOf("'a\"b\\n' \"a'b\""), (Words{"a\"b\\n", "a'b"}));
}

TEST(WordsOfALine, TakeABackslashAsAShellDoes) {
  EXPECT_EQ(WordsOf("a\\ b \\' \\\\"), (Words{"a b", "'", "\\"}));
  EXPECT_EQ(WordsOf("\"\\\" \\\\ \\$ \\` \\n\""), Words{"\" \\ $ ` \\n"});
}

TEST(WordsOfALine, AreNotExpanded) {
  EXPECT_EQ(WordsOf("$HOME * ~ `ls` a;b"), (Words{"$HOME", "*", "~", "`ls`", "a;b"}));
}

TEST(WordsOfALine, AreNoneInCommentsAndEmptyLines) {
  for (const char* line : {"", "   ", "\t\r", "# 58", "  # 58"}) EXPECT_EQ(WordsOf(line), Words{});
  EXPECT_EQ(WordsOf("58 #1"), (Words{"58", "#1"}));
}

TEST(WordsOfALine, RefuseWhatIsNotClosed) {
  for (const char* line : {"41 'a", "41 \"a", "41 \"a\\", "'"}) {
    try {
      WordsOf(line);
      ADD_FAILURE() << line;
    } catch (const commandline::WrongUse& error) {
      EXPECT_STREQ(error.what(), "A quote is not closed.");
    }
  }
  EXPECT_THROW(WordsOf("41 a\\"), commandline::WrongUse);
}

TEST(WordsOfALine, RefuseAZeroByteInWords) {
  using namespace std::string_view_literals;
  for (const std::string_view line : {"4B A \0"sv, "35 'a\0b'"sv, "41 \\\0"sv}) {
    try {
      WordsOf(line);
      ADD_FAILURE() << line;
    } catch (const commandline::WrongUse& error) {
      EXPECT_STREQ(error.what(), "The line holds a byte 00h.");
    }
  }
}

}  // namespace
}  // namespace vantrel::send
