// SPDX-License-Identifier: MIT
#pragma once

#include "log/captured_line.h"
#include "log/line_log.h"
#include "log/row_text.h"

#include <iosfwd>
#include <string>

namespace vantrel::log {

// Writes a whole log. Whether the stream is still good tells of success.
void WriteLog(std::ostream& out, LogFormat format, const LineLog& log,
              const CapturedLine& line = {});

// Saves a log in the format that the path's ending tells, as text where it tells none. Returns an
// empty text, or why it was not saved; a file that was there is then as it was.
std::string SaveLog(const LineLog& log, const std::string& path, const CapturedLine& line = {});

}  // namespace vantrel::log
