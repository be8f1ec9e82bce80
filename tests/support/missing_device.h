// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>

#include <string>

namespace vantrel::support {

// A serial device that there is not. Named after this process, because the name is locked before it
// is found missing, and another test may look for one at the same moment.
inline std::string MissingDevice() { return "/dev/vantrel-missing-" + std::to_string(getpid()); }

}  // namespace vantrel::support
