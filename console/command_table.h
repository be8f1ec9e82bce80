// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

namespace vantrel::console {

class CommandHandlers;

// One command button of the console and what its command shows and sends. Every text is shown
// letter by letter.
struct ConsoleCommand {
  std::string_view button;  // the button's name, "Cmd21"
  std::string_view code;    // the command code, two hex digits
  std::string_view caption;
  // "1": disabled while a command waits; "10" and "20": never disabled.
  std::string_view tag = "1";
  // What a press does; it is given this row.
  void (CommandHandlers::*click)(const ConsoleCommand& command);
  std::string_view send;           // first line of the hints
  std::string_view response = {};  // second line of the hints
  std::string_view panel1 = {};
  std::string_view panel2 = {};
  int time_limit = 5000;  // milliseconds
};

// The commands in the order of their buttons.
std::span<const ConsoleCommand> Commands();

}  // namespace vantrel::console
