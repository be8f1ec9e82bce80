// SPDX-License-Identifier: MIT
#pragma once

#include "commandline/table.h"

#include <string>

namespace vantrel::commandline {

// What --help prints: plain text of at most 80 columns, with an end of line after the last one.
std::string HelpText(const Program& program);
// The same for one command of it.
std::string HelpText(const Program& program, const Command& command);

// A value's help and what the table says of its values: "The speed; 50 to 4000000, 9600 if not
// told."
std::string HelpOf(const Option& option);
std::string HelpOf(const Parameter& parameter);

}  // namespace vantrel::commandline
