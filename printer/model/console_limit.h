// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>

namespace vantrel::printer {

// How long a console waits for the reply to a command before it gives it up.
std::chrono::milliseconds ConsoleLimitOf(std::uint8_t code);

}  // namespace vantrel::printer
