#pragma once

#include "printer/printer_state.h"

#include <chrono>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace vantrel {

// A command as it came: its code and the data after it, one character a byte.
struct Command {
  std::uint8_t code = 0;
  std::string data;
};

// Status bytes of a reply.
namespace status {
inline constexpr std::uint8_t kNormal = 0x20;
inline constexpr std::uint8_t kNoTargetCard = 0x22;
inline constexpr std::uint8_t kNoStripe = 0x23;
inline constexpr std::uint8_t kWritingError = 0x37;
inline constexpr std::uint8_t kNoMonochromeBmp = 0x4C;
inline constexpr std::uint8_t kOverflow = 0x51;
}  // namespace status

struct Reply {
  std::uint8_t status = status::kNormal;
  std::string data;
};

// 5Fh is the one command that ends others: everything that waits, works or stands in line is given
// up without an answer before its own work begins.
inline constexpr std::uint8_t kResetCode = 0x5F;

// What must be there before a command's work begins.
enum class Need {
  kNothing,       // no card; where it takes no time either, it is served beside other commands
  kTargetCard,    // without a target card the reply is 22h
  kCardOrWait,    // without a target card the command waits for one
  kBufferOrCard,  // as kCardOrWait, but a filled track buffer will do
  kCleaningCard,  // waits for a cleaning card; an ordinary one is discharged first
};

// How long work takes where it is not instant.
inline constexpr std::chrono::milliseconds kNoTime{0};
inline constexpr std::chrono::milliseconds kMoveTime{400};
inline constexpr std::chrono::milliseconds kReadTime{700};
inline constexpr std::chrono::milliseconds kWriteTime{1500};
inline constexpr std::chrono::milliseconds kEraseTime{1500};
inline constexpr std::chrono::milliseconds kPrintTime{2500};
inline constexpr std::chrono::milliseconds kCleaningTime{3000};
inline constexpr std::chrono::milliseconds kResetTime{500};

// One command that the printer takes. The table says what differs between commands; PrinterModel
// does what is the same.
struct CommandRow {
  std::uint8_t code;
  Need need;
  // Whether the data is one that the command takes; anything else is rejected with 10h.
  bool (*takes)(std::string_view data);
  std::chrono::milliseconds duration;
  // Does the work, when its time is over, and says what to answer.
  Reply (*work)(PrinterState& state, const Command& command);
  // Whether the printer as it is made and fitted takes this data, which `takes` has let through;
  // anything else is rejected with 10h. Null where every printer takes it.
  bool (*fits)(const PrinterState& state, const Command& command) = nullptr;
};

// The row of a code; null for a code that the printer does not take.
const CommandRow* FindCommand(std::uint8_t code);

// The groups, each in a file of its own.
std::span<const CommandRow> TrackCommands();
std::span<const CommandRow> MagneticCommands();
std::span<const CommandRow> CycleCommands();
std::span<const CommandRow> TransportCommands();
std::span<const CommandRow> MaintenanceCommands();
std::span<const CommandRow> PrintBufferCommands();
std::span<const CommandRow> ImageCommands();

// For `takes` of a command without data.
bool IsEmpty(std::string_view data);
// For `takes` of a command with one digit, "0" or "1".
bool IsZeroOrOne(std::string_view data);

// Where a track command's track stands among the three, 0 to 2: the low two bits of its code count
// from 1.
std::size_t TrackOf(const Command& command);

}  // namespace vantrel
