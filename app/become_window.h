// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace vantrel::app {

// Has the program at `path`, beside the folder of this one, take this one's place, in the same
// process and with its command line. Returns only where that cannot be: one sentence that tells
// why, and what has the program where it is not installed.
std::string BecomeWindow(const char* path, char** argv);

}  // namespace vantrel::app
