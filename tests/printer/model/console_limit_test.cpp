// SPDX-License-Identifier: MIT

#include "printer/model/console_limit.h"

#include "printer/commands/command.h"

#include <gtest/gtest.h>

namespace vantrel::printer {
namespace {

using namespace std::chrono_literals;

TEST(ConsoleLimit, AllowsForACardAndForLongWork) {
  EXPECT_EQ(ConsoleLimitOf(0x21), 20s);
  EXPECT_EQ(ConsoleLimitOf(0x25), 5s);
  EXPECT_EQ(ConsoleLimitOf(0x2B), 20s);
  EXPECT_EQ(ConsoleLimitOf(0x32), 20s);
  EXPECT_EQ(ConsoleLimitOf(0x47), 30s);
  EXPECT_EQ(ConsoleLimitOf(0x52), 60s);
  EXPECT_EQ(ConsoleLimitOf(0x96), 5s);
}

// Else "late" would not be late.
TEST(ConsoleLimit, IsLongerThanTheWorkOfEveryCommand) {
  for (unsigned code = 0; code < 256; ++code) {
    const CommandRow* row = FindCommand(static_cast<std::uint8_t>(code));
    if (row == nullptr) continue;
    EXPECT_GT(ConsoleLimitOf(row->code), row->duration) << code;
  }
}

}  // namespace
}  // namespace vantrel::printer
