// SPDX-License-Identifier: MIT
#pragma once

#include "commandline/table.h"

namespace vantrel::app {

// The command line of the software printer, from which its parsing, its help and its manual page
// follow.
const commandline::Program& PrinterProgram();

commandline::Program MakePrinterProgram();

}  // namespace vantrel::app
