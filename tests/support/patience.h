// SPDX-License-Identifier: MIT
#pragma once

namespace vantrel::support {

// How long a test waits, in milliseconds, for what another thread, another program or the system is
// to do. Only what never comes takes that long, so it is far more than any machine needs, however
// busy, and less than what a test may take.
inline constexpr int kPatience = 30000;

}  // namespace vantrel::support
