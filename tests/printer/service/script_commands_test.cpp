#include "printer/service/script_commands.h"

#include "printer/service/script_text.h"

#include <gtest/gtest.h>

#include <set>
#include <string_view>

namespace vantrel::printer {
namespace {

TEST(ScriptCommands, HaveAWordOfTheirOwnThatBeginsTheirUsage) {
  std::set<std::string_view> words;
  for (const ScriptCommand& command : ScriptCommands()) {
    EXPECT_TRUE(words.insert(command.word).second) << command.word;
    EXPECT_EQ(Split(command.usage).first, command.word);
    EXPECT_NE(command.run, nullptr) << command.word;
  }
}

}  // namespace
}  // namespace vantrel::printer
