// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/dialogs.h"

#include <ostream>
#include <span>
#include <string>
#include <vector>

namespace vantrel::reliability {

// What stands in both panels before a command is pressed.
inline constexpr const char* kOldPanel1 = "old panel 1";
inline constexpr const char* kOldPanel2 = "old panel 2";

// How the user answers a box: by a button, or by a text in an input box.
struct BoxAnswer {
  bool is_typed = false;
  dialogs::Answer answer = dialogs::Answer::kOk;
  const char* text = "";
};

// A command of the console as its printer's manual and its help texts tell it, written apart from
// the console's own table. Editing forms leave "2,0,47,AB", and 203120 as the control data of 5Ah.
struct ConsoleCommand {
  const char* button;
  const char* hints;  // the help text
  // The panels while the command waits.
  const char* panel1 = "";
  const char* panel2 = "";
  std::vector<BoxAnswer> boxes = {};        // before the first frame
  std::vector<BoxAnswer> boxes_after = {};  // after the last exchange, unless the port failed
  std::vector<const char*> frames = {};     // hex text; none for 4Ah, which only shows its help
  int time_limit = 5000;                    // milliseconds, for each frame
  const char* reply = "";                   // a good one, with the status 20h, in hex text
  const char* shown = "";                   // the same as TxtResponse shows it
  const char* label = "";
  const char* meaning = "20h: Normal Status";  // the line that the reply adds to the hints
  // The panels after the last exchange, unless the port failed.
  const char* panel1_after = "";
  const char* panel2_after = "";

  std::string Code() const { return std::string(button).substr(3); }
  bool SendsNothing() const { return frames.empty(); }
  bool SendsTwoBlocks() const { return frames.size() == 2; }

  friend void PrintTo(const ConsoleCommand& command, std::ostream* stream) {
    *stream << command.button;
  }
};

// All 48, in the order of their buttons.
std::span<const ConsoleCommand> ConsoleCommands();
// The one of that code; fails the test where there is none.
const ConsoleCommand& CommandOf(const std::string& code);

}  // namespace vantrel::reliability
