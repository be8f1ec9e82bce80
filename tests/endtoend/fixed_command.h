// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/console_fixture.h"

#include <ostream>
#include <string>
#include <vector>

namespace vantrel::endtoend {

// A command that asks nothing: what it shows while it waits, what it sends, and what a good reply
// brings.
struct FixedCommand {
  const char* button;
  const char* frame;  // hex text
  const char* help;   // both lines of LblHints
  const char* panel1;
  const char* panel2;
  const char* reply;    // from STX on, as TxtResponse shows it
  const char* meaning;  // the line under the help
};

inline void PrintTo(const FixedCommand& row, std::ostream* out) { *out << row.button; }

class FixedCommandTest : public support::ConsoleTest,
                         public testing::WithParamInterface<FixedCommand> {
 protected:
  // Presses the button and checks everything, before, during and after the wait.
  void Check() {
    const FixedCommand& row = GetParam();
    Load();
    peer_.OnFrame([&](const std::string&) {
      EXPECT_EQ(Text("LblHints"), row.help);
      EXPECT_EQ(Text("StatusBarFrmMain_1"), row.panel1);
      EXPECT_EQ(Text("StatusBarFrmMain_2"), row.panel2);
      peer_.Send(std::string("06") + row.reply);
    });
    Press(row.button);
    EXPECT_EQ(Frames(), std::vector<std::string>{row.frame});
    EXPECT_EQ(Text("TxtResponse"), row.reply);
    EXPECT_EQ(Text("LblHints"), std::string(row.help) + "\r\n" + row.meaning);
    EXPECT_EQ(Text("StatusBarFrmMain_1"), "");
    EXPECT_EQ(Text("StatusBarFrmMain_2"), "");
  }
};

}  // namespace vantrel::endtoend
