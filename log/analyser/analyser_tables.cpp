#include "log/analyser/analyser_tables.h"

#include "link/frame.h"
#include "protocol/frame_words.h"

#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <vector>

namespace vantrel::log {
namespace {

constexpr std::uint8_t kStx = 0x02;
constexpr std::uint8_t kEtx = 0x03;
// How long "21h " is, with which the words of a code begin.
constexpr std::size_t kCodeLength = 4;

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char character : text) {
    if (character == '"' || character == '\\') quoted += '\\';
    quoted += character;
  }
  return quoted + '"';
}

std::string Key(unsigned code) {
  return "  [0x" + link::HexOf(static_cast<std::uint8_t>(code)) + "] = ";
}

std::string WithoutCode(const std::string& words) { return words.substr(kCodeLength); }

std::string CommandInWords(unsigned code) {
  return protocol::CommandInWords(static_cast<std::uint8_t>(code), {});
}

// "20h normal status".
std::string StatusInWords(unsigned code) {
  const auto status = static_cast<std::uint8_t>(code);
  const auto check = static_cast<std::uint8_t>(0x20U ^ code ^ kEtx);
  const std::vector<std::uint8_t> reply{kStx, 0x20, status, kEtx, check};
  const std::string words = protocol::MeaningInWords(protocol::Direction::kFromPrinter, reply);
  return words.substr(words.find(": ") + 2);
}

// Whether a byte can stand inside a frame.
bool IsContent(unsigned code) { return code != kStx && code != kEtx; }

std::string Commands() {
  // 00h is no command.
  const std::string unknown = WithoutCode(CommandInWords(0));
  std::string text = "local UNKNOWN_COMMAND = " + Quoted(unknown) + "\nlocal COMMANDS = {\n";
  for (unsigned code = 0; code < 256; ++code) {
    const std::string alone = CommandInWords(code);
    if (!IsContent(code) || WithoutCode(alone) == unknown) continue;
    text += Key(code) + "{name = " + Quoted(alone.substr(0, alone.find(": "))) +
            ", alone = " + Quoted(alone) + "},\n";
  }
  return text + "}\n";
}

std::string Statuses() {
  // 00h is no status.
  const std::string unknown = WithoutCode(StatusInWords(0));
  std::string text = "local UNKNOWN_STATUS = " + Quoted(unknown) + "\nlocal STATUSES = {\n";
  for (unsigned code = 0; code < 256; ++code) {
    if (!IsContent(code) || WithoutCode(StatusInWords(code)) == unknown) continue;
    text += Key(code) + Quoted(StatusInWords(code)) + ",\n";
  }
  return text + "}\n";
}

std::string Controls() {
  std::string text = "local CONTROLS = {\n";
  for (const std::uint8_t control : std::initializer_list<std::uint8_t>{0x06, 0x10, 0x15})
    text += Key(control) +
            Quoted(protocol::MeaningInWords(protocol::Direction::kFromPrinter, {&control, 1})) +
            ",\n";
  return text + "}\n";
}

}  // namespace

std::string AnalyserTables() { return Commands() + Statuses() + Controls(); }

}  // namespace vantrel::log
