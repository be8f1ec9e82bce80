// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vantrel::send {

// The words of a line as a shell splits them: blanks separate, '...' and "..." hold together, a
// backslash takes the next character as it is (inside "..." only before $, `, " and a backslash).
// Nothing is expanded. Empty for an empty line and for one that begins with #. Throws
// commandline::WrongUse for a quote that is not closed, a backslash at the end and a byte 00h,
// which no shell can hand over either.
std::vector<std::string> WordsOf(std::string_view line);

}  // namespace vantrel::send
