#include "printer/command.h"

namespace vantrel {

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

bool IsEmpty(std::string_view data) { return data.empty(); }

bool IsZeroOrOne(std::string_view data) { return data == "0" || data == "1"; }

std::size_t TrackOf(const Command& command) { return (command.code & 0x03U) - 1U; }

}  // namespace vantrel
