// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/command_data.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vantrel::protocol {

// All that is known of a command and its data; the one row of a command in this room.
struct CommandEntry {
  std::uint8_t code = 0;  // as it stands after STX
  std::string_view name;  // "first track read"
  // The data as a printer takes it; see Parse.
  std::optional<CommandData> (*parse)(std::string_view data) = nullptr;
  // The data in words; empty where there is nothing to say. Lenient: it tells of data that no
  // printer takes too, as far as it can be told apart, and gives nothing for what cannot.
  std::optional<std::string> (*words)(std::string_view data) = nullptr;
};

// Every command, by rising code; 48 of them.
std::span<const CommandEntry> AllCommands();

// The entry of a code; null for a code that no command has.
const CommandEntry* FindEntry(std::uint8_t code);

}  // namespace vantrel::protocol
