// SPDX-License-Identifier: MIT
#pragma once

#include "log/line_log.h"

#include <chrono>
#include <string>

namespace vantrel::log {

// Rows of a log, so long after 2026-11-21 13:00:05.
inline LogEntry Row(std::chrono::milliseconds time, protocol::Direction direction,
                    const std::string& bytes) {
  return {WallTime(std::chrono::seconds(1795266005) + time), direction, bytes};
}
inline LogEntry To(std::chrono::milliseconds time, const std::string& bytes) {
  return Row(time, protocol::Direction::kFromConsole, bytes);
}
inline LogEntry From(std::chrono::milliseconds time, const std::string& bytes) {
  return Row(time, protocol::Direction::kFromPrinter, bytes);
}

}  // namespace vantrel::log
