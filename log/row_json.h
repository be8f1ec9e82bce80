// SPDX-License-Identifier: MIT
#pragma once

#include "log/line_log.h"

#include <string>

namespace vantrel::log {

// A row as one JSON object, without an end of line: time, direction, kind, hex, code, status,
// checkIsGood, meaning and comment.
std::string JsonLineOf(const LogEntry& entry);

}  // namespace vantrel::log
