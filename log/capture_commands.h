// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <string>

namespace vantrel::log {

// What the program vantrel-log does without a window. Data goes to `out`, sentences that begin with
// "vantrel-log: " to `errors`; each returns the status to end with.

// Writes the rows of a capture, as the saved text has them or as JSON. 0, or 1 where not all could
// be read or written.
int ShowCapture(const std::string& path, bool json, std::ostream& out, std::ostream& errors);

// Writes the differences of two captures. 0 where there are none, 1 where there are, 2 where one
// could not be read whole.
int CompareCaptures(const std::string& a, const std::string& b, bool json, std::ostream& out,
                    std::ostream& errors);

// Makes the file `to`, in the format that its ending tells, of a capture or of a log as CSV. 0, 1
// where not all could be read or written (nothing is written then), 2 for another ending.
int ConvertCapture(const std::string& from, const std::string& to, std::ostream& errors);

}  // namespace vantrel::log
