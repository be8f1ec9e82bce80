// SPDX-License-Identifier: MIT
#pragma once

#include "commandline/table.h"

#include <string>

namespace vantrel::commandline {

// A script of bash that completes the program's command line: commands, options, and values that
// are files or have choices. It needs nothing but bash.
std::string BashCompletion(const Program& program);

// The same for zsh, which tells what each option and command does. It is to be installed as
// _PROGRAM in a folder of fpath; sourced after compinit it works, too.
std::string ZshCompletion(const Program& program);

}  // namespace vantrel::commandline
