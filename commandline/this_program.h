// SPDX-License-Identifier: MIT
#pragma once

#include "commandline/table.h"

namespace vantrel::commandline {

// The table of the program that this is linked into; each program's table library defines it once.
const Program& ThisProgram();

}  // namespace vantrel::commandline
