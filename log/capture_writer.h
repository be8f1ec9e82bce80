// SPDX-License-Identifier: MIT
#pragma once

#include "log/captured_line.h"
#include "log/line_log.h"

#include <string>

namespace vantrel::log {

// A capture is a pcapng file of one section with one interface, and one packet for each row of a
// log, its bytes behind the header of link type 250. Numbers are little-endian.

// What a capture begins with: section and interface.
std::string CaptureStart(const CapturedLine& line);

// Adds the packet of a row. A comment of more than 65535 bytes is cut there. Times before 1970 are
// written as its first moment.
void AppendPacket(std::string& capture, const LogEntry& entry);

}  // namespace vantrel::log
