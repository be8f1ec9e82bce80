// SPDX-License-Identifier: MIT
#pragma once

#include "log/line_log.h"

#include <cstdint>
#include <optional>

namespace vantrel::log {

// The moment that a packet's time stands for: `ticks` of the resolution that an interface tells (a
// power of 10, or of 2 with the highest bit set, negative) after `offset` seconds from 1970; what
// is finer than a microsecond is cut off. Nothing before the year 0 and after 9999.
std::optional<WallTime> PacketTime(std::uint64_t ticks, std::uint8_t resolution,
                                   std::int64_t offset);

}  // namespace vantrel::log
