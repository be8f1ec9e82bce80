// SPDX-License-Identifier: MIT
#pragma once

#include "log/line_log.h"

#include <istream>
#include <string>
#include <vector>

namespace vantrel::log {

// Whether a regular file begins with the heading of a log as CSV. False where it cannot be read.
bool IsCsvLog(const std::string& path);

// Reads the rows of a log that was saved as CSV, with or without its last two columns; without them
// the local time counts. Throws std::runtime_error, a sentence that begins with `name`, at the
// first line that is none of a log.
std::vector<LogEntry> ReadCsvLog(std::istream& in, const std::string& name);

}  // namespace vantrel::log
