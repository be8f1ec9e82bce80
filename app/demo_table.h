// SPDX-License-Identifier: MIT
#pragma once

#include "commandline/table.h"

namespace vantrel::app {

// The command line of the demonstration: the printer's options, but for those that choose another
// line or do without the window.
const commandline::Program& DemoProgram();

}  // namespace vantrel::app
