// SPDX-License-Identifier: MIT
#pragma once

#include "commandline/table.h"

namespace vantrel::send {

// The shortest frame that can be asked for: one byte of a picture still fits.
inline constexpr int kShortestFrame = 20;
// The longest frame that the console sends, in bytes from STX to block check.
inline constexpr int kConsoleFrame = 413;

// The whole command line of vantrel-send.
const commandline::Program& SendTable();
// What a line of standard input may hold: the same commands with their own options, and the
// options that a line may carry.
const commandline::Program& LineTable();

}  // namespace vantrel::send
