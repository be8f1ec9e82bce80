// SPDX-License-Identifier: MIT
#pragma once

#include "commandline/table.h"

namespace vantrel::app {

// The command line of the console, from which its parsing, its help and its manual page follow.
const commandline::Program& ConsoleTable();

}  // namespace vantrel::app
