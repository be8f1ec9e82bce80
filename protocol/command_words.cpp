// SPDX-License-Identifier: MIT

#include "link/frame.h"
#include "protocol/command_readers.h"
#include "protocol/command_table.h"
#include "protocol/frame_words.h"

namespace vantrel::protocol {

std::string CommandInWords(std::uint8_t code, std::string_view data) {
  const CommandEntry* entry = FindEntry(code);
  std::string words =
      link::HexOf(code) + "h " + std::string(entry == nullptr ? "unknown command" : entry->name);
  if (entry == nullptr) return data.empty() ? words : words + ": " + DataInWords(data);
  const Meaning meaning = entry->words(data);
  if (meaning) return meaning->empty() ? words : words + ": " + *meaning;
  return words + (data.empty() ? ": no data" : ": cannot be read: " + DataInWords(data));
}

// A field without a character would leave nothing to see.
std::string Shown(std::string_view field) { return field.empty() ? "(none)" : std::string(field); }

bool IsCoordinate(std::string_view field) { return field.empty() || IsNumber(field); }

bool IsNumber(std::string_view field) {
  return !field.empty() && field.find_first_not_of("0123456789") == std::string_view::npos;
}

bool IsHex(std::string_view field) {
  return field.find_first_not_of("0123456789ABCDEFabcdef") == std::string_view::npos;
}

}  // namespace vantrel::protocol
