// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace vantrel::commandline {

// From now on, an exception that nothing catches, such as one that meets a function declared
// noexcept, is told on standard error as "PROGRAM: a fault of the program: WHAT" and ends the
// program at once with status 1. What event loops call is noexcept for this: no exception may pass
// through the library's own functions.
void EndOnFaults(const std::string& program);

}  // namespace vantrel::commandline
