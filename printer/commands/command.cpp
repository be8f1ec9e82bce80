// SPDX-License-Identifier: MIT

#include "printer/commands/command.h"

namespace vantrel::printer {

std::optional<PreparedCommand> Prepare(const PrinterState& state,
                                       std::span<const std::uint8_t> content) {
  const CommandRow* row = content.empty() ? nullptr : FindCommand(content.front());
  if (row == nullptr) return std::nullopt;
  const std::string data(content.begin() + 1, content.end());
  auto value = protocol::Parse(row->code, data);
  if (!value || (row->fits != nullptr && !row->fits(state, *value))) return std::nullopt;
  return PreparedCommand(*row, std::move(*value));
}

const CommandRow* FindCommand(std::uint8_t code) {
  for (const auto group :
       {TrackCommands(), MagneticCommands(), PrintBufferCommands(), ImageCommands(),
        CycleCommands(), TransportCommands(), MaintenanceCommands()}) {
    for (const CommandRow& row : group) {
      if (row.code == code) return &row;
    }
  }
  return nullptr;
}

}  // namespace vantrel::printer
