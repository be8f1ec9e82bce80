// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace vantrel::log {

// The words of commands, statuses and control characters as Lua tables, for the analyser's plugin:
// COMMANDS, STATUSES and CONTROLS by code, and what is said of a code that is in none.
std::string AnalyserTables();

}  // namespace vantrel::log
