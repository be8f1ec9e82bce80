// SPDX-License-Identifier: MIT
#pragma once

#include "console/command_handlers.h"
#include "link/transaction.h"
#include "tests/reliability/console_commands.h"
#include "tests/reliability/line.h"
#include "tests/support/call_log.h"
#include "tests/support/fake_display.h"
#include "tests/support/recording_sub_forms.h"
#include "tests/support/scripted_dialogs.h"

#include <string>

namespace vantrel::reliability {

// How a press ended.
struct PressEnd {
  std::string error;      // the message of a port failure
  bool silently = false;  // abandoned, with nothing to tell
  int milliseconds = 0;
};

// The console's commands in a time that stands still, on a line of the case's making.
class ConsoleBench {
 public:
  explicit ConsoleBench(Line::Strike strike);

  // The user presses the button and answers its boxes.
  PressEnd Press(const ConsoleCommand& command, bool port_fails = false);
  // The same inside a wait; what it throws goes to the clock, as it goes to the application.
  void PressInside(const ConsoleCommand& command);
  // Expects what every command leaves at its end: ordinary buttons enabled, nothing waiting, these
  // panels.
  void ExpectReady(const std::string& panel1 = "", const std::string& panel2 = "") const;
  // Whatever still comes, and any number of time limits that run on, change nothing; with the port
  // open, the next command works as the first one did.
  void ExpectUsable();

  std::string Text(link::Field field) const { return display.Text(field); }

  support::CallLog log;
  support::FakeDisplay display;
  support::ManualClock clock;
  support::FakePort port;
  support::ScriptedDialogs dialogs;
  support::RecordingSubForms sub_forms{log};
  link::CommonVariables common;
  link::Transaction transaction{port, display, clock, link::CodePage::kWestern};
  console::CommandHandlers handlers{
      transaction,
      display,
      dialogs,
      sub_forms,
      common,
      console::SystemTime{[] { return console::TimeText{}; }, [] { return console::TimeText{}; }},
      link::CodePage::kWestern};
  Line line;

 private:
  void Answer(const std::vector<BoxAnswer>& boxes);
  void Click(const ConsoleCommand& command);
};

// Hex pairs, each followed by a blank.
std::string Spaced(const std::string& hex);

}  // namespace vantrel::reliability
