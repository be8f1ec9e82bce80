// SPDX-License-Identifier: MIT
#pragma once

#include "commandline/table.h"

#include <string>
#include <string_view>

namespace vantrel::commandline {

// The manual page: `page` is one in roff's man macros in which these lines stand for what the table
// knows:
//   @NAME@      the title line and the section NAME
//   @SYNOPSIS@  the section SYNOPSIS
//   @OPTIONS@   the section OPTIONS
//   @COMMANDS@  the section COMMANDS: each with its parameters and options
//   @LINES@     the lines of standard input, a paragraph each, without a section of their own
// Every other line is taken as it is. Throws std::invalid_argument for another line that begins
// and ends with "@".
std::string ManualPage(const Program& program, std::string_view page);

}  // namespace vantrel::commandline
