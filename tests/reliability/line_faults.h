// SPDX-License-Identifier: MIT
#pragma once

#include "tests/reliability/console_commands.h"
#include "tests/reliability/line.h"

#include <span>

namespace vantrel::reliability {

// When an exchange ends.
enum class Ending {
  kSoon,        // within a second
  kJustBefore,  // in the last 20 ms of the time limit
  kLimit,       // at the time limit, with the pass of 10 ms that notices it
  kAny,
};

// The frame is sent again every 100 ms until the time limit.
inline constexpr int kAsLongAsItLasts = -1;

// What vantrel-send makes of an exchange.
struct SenderOutcome {
  const char* outcome;
  const char* meaning;
  int status;  // of the program
  int resends = 0;
};

// Something that goes wrong on the line, and what the console must show of it. In the texts $shown
// is the good reply as TxtResponse shows it and $meaning its line in the hints, $jammed and $jam
// those of the reply with status 38h, and $reply the good reply in hex text.
struct LineFault {
  const char* name;
  Line::Strike strike;
  const char* response;  // TxtResponse
  Ending ending;
  const char* added;  // to the hints
  SenderOutcome sender;
  // Called before the button is pressed.
  Line::Strike prepare = [](Line&) {};
  // 4Bh sends a second frame whatever came of the first, and what comes late for the first block
  // meets the second. Where this is empty, both blocks end as the one frame of another command
  // does.
  const char* block_response = "";
  const char* block_added = "";
  Ending block_ending = Ending::kAny;
};

std::span<const LineFault> LineFaults();

// A failure of the port. It is told in a box, and nothing more happens.
struct PortFault {
  const char* name;
  Line::Strike strike;
  Line::Strike prepare;
  const char* message;
  // Whether the frame was shown before.
  bool frame_shown = true;
  // How many frames went out; each to the same command.
  int frames_sent = 1;
  const char* response = "";
  // Whether the port is closed beforehand; vantrel-send opens it then.
  bool is_closed_before = false;
  // Whether the good reply is whole by then: for vantrel-send it counts.
  bool is_replied_before = false;
};

std::span<const PortFault> PortFaults();

// The text of a fault for a command.
std::string Filled(std::string text, const ConsoleCommand& command);

}  // namespace vantrel::reliability
