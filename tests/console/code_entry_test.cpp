// SPDX-License-Identifier: MIT

#include "console/code_entry.h"

#include <gtest/gtest.h>

namespace vantrel::console {
namespace {

using std::chrono::milliseconds;

TEST(CodeEntry, TwoDigitsWithinASecondAreACode) {
  CodeEntry entry;
  EXPECT_EQ(entry.Type('5', milliseconds(0)), std::nullopt);
  EXPECT_EQ(entry.Type('f', milliseconds(1000)), "5F");
}

TEST(CodeEntry, AfterASecondADigitBeginsAnew) {
  CodeEntry entry;
  entry.Type('5', milliseconds(0));
  EXPECT_EQ(entry.Type('2', milliseconds(1001)), std::nullopt);
  EXPECT_EQ(entry.Type('1', milliseconds(1500)), "21");
}

TEST(CodeEntry, ACodeIsTakenOnce) {
  CodeEntry entry;
  entry.Type('2', milliseconds(0));
  EXPECT_EQ(entry.Type('1', milliseconds(10)), "21");
  EXPECT_EQ(entry.Type('2', milliseconds(20)), std::nullopt);
}

TEST(CodeEntry, TheSecondDigitOfNoCodeMayBeginOne) {
  CodeEntry entry;
  entry.Type('1', milliseconds(0));
  EXPECT_EQ(entry.Type('5', milliseconds(10)), "15");
  entry.Reject();
  EXPECT_EQ(entry.Type('2', milliseconds(20)), "52");
}

TEST(CodeEntry, AnotherKeyBetweenThemClears) {
  CodeEntry entry;
  entry.Type('2', milliseconds(0));
  entry.Clear();
  EXPECT_EQ(entry.Type('1', milliseconds(10)), std::nullopt);
}

}  // namespace
}  // namespace vantrel::console
