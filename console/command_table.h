#pragma once

#include <span>
#include <string_view>

namespace vantrel {

class CommandHandlers;

// One command button of the console and what its command shows and sends. Every text is shown
// letter by letter.
struct ConsoleCommand {
  std::string_view button;  // the button's name, "Cmd21"
  std::string_view code;    // the command code, two hex digits
  std::string_view caption;
  std::string_view tag;  // "1": disabled while a command waits; "10" and "20": never disabled
  void (CommandHandlers::*click)();
  std::string_view send;      // first line of the hints
  std::string_view response;  // second line of the hints
  std::string_view panel1;
  std::string_view panel2;
  int time_limit;  // milliseconds
  // The whole frame as hex text where a fixed one carries its block check written in; empty where
  // the frame is composed.
  std::string_view written_frame;
};

// The 48 commands in the order of their buttons.
std::span<const ConsoleCommand> Commands();

// The command of a code, for example "5A". Throws std::out_of_range for a code that the console
// does not have.
const ConsoleCommand& CommandOf(std::string_view code);

}  // namespace vantrel
