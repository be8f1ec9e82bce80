#pragma once

#include "log/line_recorder.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vantrel::log {
class Playback;
}

namespace vantrel::printer {

class PrinterModel;
class PrinterServer;

// What a line of a script is answered with: "ok" or "error", and a text where there is one.
struct ScriptAnswer {
  bool ok = true;
  std::string text;

  static ScriptAnswer Ok(std::string text = {}) { return {true, std::move(text)}; }
  static ScriptAnswer Error(std::string text) { return {false, std::move(text)}; }
};

// A wait for a frame of the console, or for the end of a capture that is played back.
struct ScriptWait {
  std::optional<std::uint8_t> code;  // any where there is none
  int milliseconds = 0;              // at most
  bool for_end = false;
};

// What the commands of a script work on: a printer, or a capture that is played back.
struct ScriptContext {
  PrinterModel* model = nullptr;            // both null where a capture is played back
  PrinterServer* server = nullptr;          // of `model`
  const log::Playback* playback = nullptr;  // null where a printer answers
  log::LineRecorder& recorder;
  // Set by a command that waits: it is answered when the wait is over.
  std::optional<ScriptWait> wait;
  // Set by the command that ends the script.
  bool is_over = false;
};

// One command of a script. `run` gets what follows the word, without the blanks before it; it
// returns nothing where the answer comes later.
struct ScriptCommand {
  std::string_view word;
  std::string_view usage;
  std::optional<ScriptAnswer> (*run)(ScriptContext& context, std::string_view rest);
  // Whether it works where a capture is played back, where no printer is.
  bool needs_no_printer = false;
};

// Every command, in the order in which "help" names them.
std::span<const ScriptCommand> ScriptCommands();

// Does what a line says; nothing where the answer comes later.
std::optional<ScriptAnswer> DoScriptLine(ScriptContext& context, std::string_view line);

}  // namespace vantrel::printer
