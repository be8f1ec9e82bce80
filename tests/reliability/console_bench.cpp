// SPDX-License-Identifier: MIT

#include "tests/reliability/console_bench.h"

#include "console/command_table.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>

namespace vantrel::reliability {

using link::Field;

std::string Spaced(const std::string& hex) {
  std::string spaced;
  for (std::size_t i = 0; i < hex.size(); i += 2) spaced += hex.substr(i, 2) + " ";
  return spaced;
}

ConsoleBench::ConsoleBench(Line::Strike strike) : line(port, clock, std::move(strike)) {
  port.Open();
  display.SetText(Field::TxtCommand, "old command");
  display.SetText(Field::TxtSyntax, "old syntax");
  display.SetText(Field::TxtResponse, "old reply");
  display.SetText(Field::LblHints, "old hints");
  display.SetText(Field::Panel1, kOldPanel1);
  display.SetText(Field::Panel2, kOldPanel2);
  sub_forms.meanwhile = [this] {
    common.DataString = "2,0,47,AB";
    common.ControlDataString = "203120";
  };
}

void ConsoleBench::Answer(const std::vector<BoxAnswer>& boxes) {
  for (const BoxAnswer& box : boxes)
    box.is_typed ? dialogs.Types(box.text) : dialogs.Answers(box.answer);
}

void ConsoleBench::Click(const ConsoleCommand& command) {
  for (const console::ConsoleCommand& row : console::Commands())
    if (row.button == command.button) return (handlers.*row.click)(row);
  throw std::logic_error(std::string("no button ") + command.button);
}

PressEnd ConsoleBench::Press(const ConsoleCommand& command, bool port_fails) {
  Answer(command.boxes);
  if (!port_fails) Answer(command.boxes_after);
  PressEnd end;
  const int begin = clock.Now();
  try {
    Click(command);
  } catch (const link::PortError& error) {
    end.error = error.what();
  } catch (const link::ExchangeEnded&) {
    end.silently = true;
  }
  end.milliseconds = clock.Now() - begin;
  return end;
}

void ConsoleBench::PressInside(const ConsoleCommand& command) { Click(command); }

void ConsoleBench::ExpectReady(const std::string& panel1, const std::string& panel2) const {
  EXPECT_TRUE(display.ButtonsEnabled());
  EXPECT_FALSE(transaction.IsWaiting());
  EXPECT_EQ(Text(Field::Panel1), panel1);
  EXPECT_EQ(Text(Field::Panel2), panel2);
}

void ConsoleBench::ExpectUsable() {
  const auto texts = [this] {
    std::string all;
    for (const Field field : {Field::TxtCommand, Field::TxtSyntax, Field::TxtResponse,
                              Field::LblHints, Field::Panel1, Field::Panel2})
      all += Text(field) + "|";
    return all;
  };
  const std::string before = texts();
  const std::size_t writes = port.Writes().size();
  clock.Advance(200'000);
  EXPECT_EQ(texts(), before);
  EXPECT_EQ(port.Writes().size(), writes);
  ASSERT_FALSE(transaction.IsWaiting());

  if (!port.IsOpen()) port.Open();
  line.Become([](Line& answering) { answering.Send(25, answering.Good()); });
  const PressEnd end = Press(CommandOf("58"));
  EXPECT_EQ(end.error, "");
  EXPECT_EQ(Text(Field::TxtCommand), "58");
  EXPECT_EQ(Text(Field::TxtSyntax), "02 58 03 5B ");
  EXPECT_EQ(Text(Field::TxtResponse), "02 58 20 56 31 2E 30 31 03 33 ");
  EXPECT_EQ(Text(Field::LblHints),
            "         Send: STX 58h ETX 5Bh\r\n"
            "Response: STX 58h Status ROM information ETX BCC\r\nROM Version: V1.01");
  EXPECT_LE(end.milliseconds, 40);
  ExpectReady();
}

}  // namespace vantrel::reliability
