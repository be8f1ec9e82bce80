// SPDX-License-Identifier: MIT
#pragma once

#include <span>

namespace vantrel::printer {

// Each of the 48 commands once, in an order in which a printer with a card in answers all of them
// with 20h. For the last one the card must be pulled out and a cleaning card put in.
struct CommandAndData {
  const char* code;
  const char* data;  // hex
};

std::span<const CommandAndData> AllCommands();

}  // namespace vantrel::printer
