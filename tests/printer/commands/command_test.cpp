// SPDX-License-Identifier: MIT

// What the two tables of the commands have to do with each other: every command that can be parsed
// is served, and works on the value that its data becomes.

#include "printer/commands/command.h"

#include "protocol/command_table.h"
#include "tests/support/installed_fonts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>

namespace vantrel::printer {
namespace {

link::Bytes ContentOf(std::uint8_t code, std::string_view data) {
  link::Bytes content(1 + data.size());
  content.front() = code;
  std::copy(data.begin(), data.end(), content.begin() + 1);
  return content;
}

// Good data of a command; empty for those without data.
std::string GoodData(std::uint8_t code) {
  static const std::map<int, std::string> kData{
      {0x31, "4"},
      {0x32, "4"},
      {0x41, "2,0,47,A"},
      {0x42, "2,0,47,0"},
      {0x43, "0,0,00"},
      {0x44, "1,0," + std::string(64, '0')},
      {0x45, "1,0," + std::string(32, '0')},
      {0x46, "0"},
      {0x47, "0"},
      {0x48, "0"},
      {0x4B, "+,00"},
      {0x4D, "0,0,1,00"},
      {0x4E, "0,47,2,1"},
      {0x50, "0"},
      {0x5A, "111"},
      {0x5B, "1"},
      {0x91, "1"},
  };
  if (code >= 0x35 && code <= 0x3D) return "1";
  const auto found = kData.find(code);
  return found == kData.end() ? std::string() : found->second;
}

// 4Ah is rejected as long as nothing is registered: its work has tests of its own.
constexpr std::uint8_t kRegisteredImage = 0x4A;

TEST(Prepare, MakesEveryCommandReadyForItsWork) {
  for (const protocol::CommandEntry& entry : protocol::AllCommands()) {
    if (entry.code == kRegisteredImage) continue;
    PrinterState state(support::InstalledFonts(), link::CodePage::kWestern);
    state.place = CardPlace::kFront;
    const auto command = Prepare(state, ContentOf(entry.code, GoodData(entry.code)));
    ASSERT_TRUE(command) << entry.name;
    EXPECT_EQ(command->Code(), entry.code);
    EXPECT_NO_THROW(command->Work(state)) << entry.name;
  }
}

TEST(Prepare, RejectsACodeThatThePrinterDoesNotServeAndNoCodeAtAll) {
  const PrinterState state(support::InstalledFonts(), link::CodePage::kWestern);
  EXPECT_FALSE(Prepare(state, {}));
  EXPECT_FALSE(Prepare(state, ContentOf(0x20, "")));
  EXPECT_FALSE(Prepare(state, ContentOf(0xFF, "")));
}

TEST(Prepare, RejectsDataThatTheCommandDoesNotTake) {
  const PrinterState state(support::InstalledFonts(), link::CodePage::kWestern);
  EXPECT_FALSE(Prepare(state, ContentOf(0x21, "1")));
  EXPECT_FALSE(Prepare(state, ContentOf(0x50, "2")));
  EXPECT_FALSE(Prepare(state, ContentOf(0x42, "2,0,47,6")));
  EXPECT_FALSE(Prepare(state, ContentOf(kRegisteredImage, "2,0,47,0,0,0")));
}

TEST(Prepare, LooksAtTheSeriesAndTheCaseParts) {
  PrinterState state(support::InstalledFonts(), link::CodePage::kWestern);
  EXPECT_TRUE(Prepare(state, ContentOf(0x31, "5")));
  EXPECT_TRUE(Prepare(state, ContentOf(0x48, "2")));
  state.series = Series::kQl8;
  state.case_parts = true;
  EXPECT_FALSE(Prepare(state, ContentOf(0x31, "5")));
  EXPECT_TRUE(Prepare(state, ContentOf(0x31, "4")));
  EXPECT_FALSE(Prepare(state, ContentOf(0x48, "2")));
}

}  // namespace
}  // namespace vantrel::printer
