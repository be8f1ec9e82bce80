// SPDX-License-Identifier: MIT
#pragma once

namespace vantrel::log {
class LineRecorder;
}

namespace vantrel::printer {

class PrinterServer;

// Adds what goes over a server's line, and what there is to remark on it, to a recorder's log from
// now on, as long as both live.
void RecordLineOf(PrinterServer& server, log::LineRecorder& recorder);

}  // namespace vantrel::printer
