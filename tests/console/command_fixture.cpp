// SPDX-License-Identifier: MIT

#include "tests/console/command_fixture.h"

#include "console/command_table.h"

#include <algorithm>
#include <ostream>
#include <stdexcept>

namespace vantrel::console {

void PrintTo(const FixedCommand& command, std::ostream* stream) { *stream << command.button; }

CommandFixture::CommandFixture() {
  port.Open();
  display.SetText(link::Field::TxtCommand, "old command");
  display.SetText(link::Field::TxtSyntax, "old syntax");
  display.SetText(link::Field::TxtResponse, "old reply");
  display.SetText(link::Field::LblHints, "old hints");
  display.SetText(link::Field::Panel1, "old panel 1");
  display.SetText(link::Field::Panel2, "old panel 2");
  display.LogTo(log);
  port.LogTo(log);
  dialogs.LogTo(log);
}

void CommandFixture::Press(std::string_view button) {
  for (const ConsoleCommand& command : Commands()) {
    if (command.button != button) continue;
    (handlers.*command.click)(command);
    return;
  }
  throw std::logic_error("no button " + std::string(button));
}

std::vector<std::string> CommandFixture::BeforeExchange() const {
  const std::vector<std::string>& lines = log.Lines();
  return {lines.begin(), std::find(lines.begin(), lines.end(), "Buttons off")};
}

std::vector<std::string> CommandFixture::PromptsOf(const std::string& title) const {
  std::vector<std::string> prompts;
  for (const support::ScriptedDialogs::Shown& shown : dialogs.All())
    if (shown.title == title) prompts.push_back(shown.prompt);
  return prompts;
}

void CommandFixture::ExpectNothingSent() const {
  EXPECT_THAT(Frames(), testing::IsEmpty());
  EXPECT_THAT(display.ButtonHistory(), testing::IsEmpty());
}

void CommandFixture::ExpectFixedCommand(const FixedCommand& command) {
  printer.Replies(command.reply);
  Press(command.button);
  const std::string hints = command.hints;
  const std::string panel1 = command.panel1;
  const std::string panel2 = command.panel2;
  EXPECT_THAT(BeforeExchange(), testing::ElementsAre("LblHints = " + hints, "Panel1 = " + panel1,
                                                     "Panel2 = " + panel2));
  EXPECT_THAT(printer.Exchanges(), testing::ElementsAre(Exchange{command.frame, command.time_limit,
                                                                 hints, panel1, panel2, false}));
  EXPECT_EQ(Hints(), hints + "\r\n" + command.meaning);
  EXPECT_EQ(Panel1(), "");
  EXPECT_EQ(Panel2(), "");
  EXPECT_TRUE(display.ButtonsEnabled());
}

}  // namespace vantrel::console
