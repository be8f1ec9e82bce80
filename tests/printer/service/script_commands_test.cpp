// SPDX-License-Identifier: MIT

#include "printer/service/script_commands.h"

#include "printer/service/script_text.h"
#include "printer/service/script_words.h"

#include <gtest/gtest.h>

#include <set>
#include <string_view>

namespace vantrel::printer {
namespace {

TEST(ScriptCommands, DoWhatTheLinesTell) {
  std::set<std::string_view> told;
  for (const ScriptLine& line : ScriptLines()) {
    EXPECT_TRUE(told.insert(line.words).second) << line.words;
    EXPECT_TRUE(line.usage.starts_with(line.words)) << line.usage;
    EXPECT_TRUE(line.help.ends_with('.')) << line.words;
  }
  // It tells of the others.
  std::set<std::string_view> done{"help"};
  for (const auto& commands : {CardCommands(), PrinterCommands(), WaitCommands()}) {
    for (const ScriptCommand& command : commands) {
      EXPECT_TRUE(done.insert(command.words).second) << command.words;
      EXPECT_NE(command.run, nullptr) << command.words;
    }
  }
  EXPECT_EQ(told, done);
}

}  // namespace
}  // namespace vantrel::printer
