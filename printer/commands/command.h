// SPDX-License-Identifier: MIT
#pragma once

#include "printer/commands/printer_state.h"
#include "protocol/command_data.h"
#include "protocol/status.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <variant>

namespace vantrel::printer {

namespace status = protocol::status;

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
// does what is the same. The functions get the value that protocol::Parse makes of the data; they
// are made by kFor from ones of the command's own type of data.
struct CommandRow {
  std::uint8_t code = 0;
  Need need = Need::kNothing;
  std::chrono::milliseconds duration = kNoTime;
  // Does the work, when its time is over, and says what to answer.
  Reply (*work)(PrinterState& state, const protocol::CommandData& data) = nullptr;
  // Whether the printer as it is made and fitted takes this data; anything else is rejected with
  // 10h. Null where every printer takes all that protocol::Parse lets through.
  bool (*fits)(const PrinterState& state, const protocol::CommandData& data) = nullptr;
  // Where the need is kBufferOrCard: whether the track buffer is filled.
  bool (*is_buffered)(const PrinterState& state, const protocol::CommandData& data) = nullptr;
};

// A function of a command's own type of data, such as `Reply Work(PrinterState&, const Barcode&)`,
// for a row. A row whose command is parsed into another type throws std::bad_variant_access.
template <auto function>
inline constexpr auto kFor = nullptr;
template <typename Result, typename State, typename Data, Result (*function)(State&, const Data&)>
inline constexpr auto kFor<function> = +[](State& state, const protocol::CommandData& data) {
  return function(state, std::get<Data>(data));
};

// A command that the printer has taken, ready for its work: its data is parsed, and was found to be
// for a printer as this one is made and fitted.
class PreparedCommand {
 public:
  PreparedCommand(const CommandRow& row, protocol::CommandData data)
      : row_(&row), data_(std::move(data)) {}

  std::uint8_t Code() const { return row_->code; }
  Need Needs() const { return row_->need; }
  std::chrono::milliseconds Duration() const { return row_->duration; }
  // Whether a track buffer is filled that will do in place of a card.
  bool IsBuffered(const PrinterState& state) const {
    return row_->is_buffered != nullptr && row_->is_buffered(state, data_);
  }
  // Does the work and says what to answer. Call it once.
  Reply Work(PrinterState& state) const { return row_->work(state, data_); }

 private:
  const CommandRow* row_;
  protocol::CommandData data_;
};

// What stands in a frame, a code and its data, made ready for its work. Nothing where it is to be
// rejected with 10h: no code at all, one that the printer does not take, or such data.
std::optional<PreparedCommand> Prepare(const PrinterState& state,
                                       std::span<const std::uint8_t> content);

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

}  // namespace vantrel::printer
