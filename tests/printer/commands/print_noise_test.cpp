// SPDX-License-Identifier: MIT

#include "tests/support/print_bench.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace vantrel::printer {
namespace {

// Fields that are often right, in any number and order, for every command that draws.
TEST(PrintCommands, AnswerAnyDataAndGoOn) {
  constexpr const char* kFields[] = {
      "0",  "1", "2", "3", "47", "100",  "319", "320", "479",  "A",      "F",        "+",
      "AB", "",  "x", "5", "40", "0180", "FF",  "999", "424D", "\x1BGF", "Te\r\nxt", "\x1BX479A"};
  std::mt19937 random(77);
  support::PrintBench bench;
  std::map<std::string, int> answers;
  for (int round = 0; round < 20000; ++round) {
    constexpr std::uint8_t kCodes[] = {0x40, 0x41, 0x42, 0x43, 0x44, 0x45,
                                       0x49, 0x4A, 0x4B, 0x4D, 0x4E};
    std::string data;
    for (auto fields = random() % 7; fields > 0; --fields) {
      data += kFields[random() % std::size(kFields)];
      if (fields > 1) data += ',';
    }
    ++answers[bench.Send(kCodes[random() % std::size(kCodes)], data)];
  }
  for (const auto& [answer, count] : answers) {
    EXPECT_TRUE(answer == "10" || answer == "20" || answer == "51" || answer == "4C")
        << answer << ", " << count << " times";
  }
  // Each kind of answer came up.
  EXPECT_EQ(answers.size(), 4U);
}

}  // namespace
}  // namespace vantrel::printer
