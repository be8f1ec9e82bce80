// SPDX-License-Identifier: MIT
#pragma once

#include "log/json_object.h"
#include "log/line_recorder.h"
#include "printer/model/card_deck.h"
#include "printer/model/printer_model.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vantrel::log {
class Playback;
}

namespace vantrel::printer {

class PrinterServer;

// What a line of a script is answered with: "ok" or "error" and a text where there is one, or in
// JSON an object with these members, or with the text of the error.
struct ScriptAnswer {
  bool ok = true;
  std::string text;
  log::JsonObject members;

  static ScriptAnswer Ok(std::string text = {}, log::JsonObject members = {}) {
    return {true, std::move(text), std::move(members)};
  }
  static ScriptAnswer Error(std::string text) { return {false, std::move(text), {}}; }
  // Of an error that may begin with a path; a long one is told in part.
  static ScriptAnswer PathError(const std::string& path, const std::string& error);
};

// What a script waits for.
struct ScriptWait {
  enum class For {
    kFrame,     // of the console
    kReply,     // to the last command
    kActivity,  // of the printer
    kEnd,       // of a capture that is played back
  };
  For what = For::kFrame;
  std::optional<std::uint8_t> code{};  // of a frame or reply; any where there is none
  Activity activity = Activity::kIdle;
  int milliseconds = 0;  // at most
};

// How a script is answered.
struct ScriptStyle {
  bool json = false;
  // What the member is called that names the line: "device", "address" or "socket".
  std::string line = "device";
};

// What the lines of a script work on: a printer, or a capture that is played back.
struct ScriptContext {
  PrinterModel* model = nullptr;            // both null where a capture is played back
  PrinterServer* server = nullptr;          // of `model`
  const log::Playback* playback = nullptr;  // null where a printer answers
  log::LineRecorder& recorder;
  ScriptStyle style{};
  CardDeck deck{};
  // Whether events are told.
  bool events = false;
  // Set by a line that waits: it is answered when the wait is over.
  std::optional<ScriptWait> wait{};
  // Set by the line that ends the script, and the status that it asks for.
  bool is_over = false;
  std::optional<int> status{};
};

// What a line does that begins with these words; see ScriptLine. `run` gets what follows them,
// without the blanks before it and, but for "track", after it; it returns nothing where the answer
// comes later.
struct ScriptCommand {
  std::string_view words;
  std::optional<ScriptAnswer> (*run)(ScriptContext& context, std::string_view rest);
};

// One for each of ScriptLines(), by what they deal with, each in a file of its own.
std::span<const ScriptCommand> CardCommands();
std::span<const ScriptCommand> PrinterCommands();
std::span<const ScriptCommand> WaitCommands();

// Does what a line says; nothing where the answer comes later.
std::optional<ScriptAnswer> DoScriptLine(ScriptContext& context, std::string_view line);

}  // namespace vantrel::printer
