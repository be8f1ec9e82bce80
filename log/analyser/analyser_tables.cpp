// SPDX-License-Identifier: MIT

#include "log/analyser/analyser_tables.h"

#include "link/frame.h"
#include "protocol/command_table.h"
#include "protocol/control.h"
#include "protocol/frame_words.h"
#include "protocol/status.h"

#include <cstdint>
#include <initializer_list>
#include <string_view>

namespace vantrel::log {
namespace {

// No command and no status has this code.
constexpr std::uint8_t kUnknown = 0x00;

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char character : text) {
    if (character == '"' || character == '\\') quoted += '\\';
    quoted += character;
  }
  return quoted + '"';
}

// "21h first track read".
std::string Named(std::uint8_t code, std::string_view name) {
  return link::HexOf(code) + "h " + std::string(name);
}

std::string Key(std::uint8_t code) { return "  [0x" + link::HexOf(code) + "] = "; }

std::string Commands() {
  const std::string unknown =
      protocol::CommandInWords(kUnknown, {}).substr(Named(kUnknown, {}).size());
  std::string text = "local UNKNOWN_COMMAND = " + Quoted(unknown) + "\nlocal COMMANDS = {\n";
  for (const protocol::CommandEntry& command : protocol::AllCommands())
    text += Key(command.code) + "{name = " + Quoted(Named(command.code, command.name)) +
            ", alone = " + Quoted(protocol::CommandInWords(command.code, {})) + "},\n";
  return text + "}\n";
}

std::string Statuses() {
  std::string text = "local UNKNOWN_STATUS = " + Quoted(protocol::StatusMeaning(kUnknown)) +
                     "\nlocal STATUSES = {\n";
  for (const protocol::StatusEntry& entry : protocol::AllStatuses())
    text += Key(entry.status) + Quoted(Named(entry.status, entry.meaning)) + ",\n";
  return text + "}\n";
}

std::string Controls() {
  std::string text = "local CONTROLS = {\n";
  for (const std::uint8_t control : {protocol::kAcknowledge, protocol::kReject, protocol::kResend})
    text += Key(control) +
            Quoted(protocol::MeaningInWords(protocol::Direction::kFromPrinter, {&control, 1})) +
            ",\n";
  return text + "}\n";
}

}  // namespace

std::string AnalyserTables() { return Commands() + Statuses() + Controls(); }

}  // namespace vantrel::log
