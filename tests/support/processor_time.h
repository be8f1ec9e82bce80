// SPDX-License-Identifier: MIT
#pragma once

namespace vantrel::support {

// Milliseconds of processor time that this process has used so far.
double ProcessorTime();

}  // namespace vantrel::support
