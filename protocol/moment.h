// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace vantrel::protocol {

// A moment on a clock that only goes forward, in milliseconds from any start. The printer never
// looks at a clock: whoever drives it hands the time in.
using Moment = std::chrono::milliseconds;

}  // namespace vantrel::protocol
