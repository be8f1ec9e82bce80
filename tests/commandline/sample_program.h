// SPDX-License-Identifier: MIT
#pragma once

#include "commandline/table.h"

#include <string>

namespace vantrel::commandline {

// A program with everything that a table can hold.
const Program& Dispenser();
// One without commands.
const Program& Copier();

// Runs a command of the shell and returns what it wrote to standard output and to standard error.
std::string OutputOf(const std::string& command);
// Writes a file into a folder that is removed at the end of the program, and returns its path.
std::string TemporaryFile(const std::string& name, const std::string& text);

}  // namespace vantrel::commandline
