// SPDX-License-Identifier: MIT
#pragma once

#include "commandline/table.h"

namespace vantrel::app {

// What vantrel-log takes on its command line.
const commandline::Program& LogProgram();

}  // namespace vantrel::app
