// SPDX-License-Identifier: MIT
#pragma once

#include "send/job.h"

#include <string>
#include <vector>

namespace vantrel::send {

// The data fields of a command as hex text, one for each frame, from its parsed parameters and
// options. All throw commandline::WrongUse for what the command does not take.
using DataFields = std::vector<std::string>;

DataFields TrackText(const commandline::Parsed& parsed, const Means& means);        // 35h to 3Dh
DataFields PrintText(const commandline::Parsed& parsed, const Means& means);        // 41h
DataFields InternalImage(const commandline::Parsed& parsed, const Means& means);    // 42h
DataFields RegisteredImage(const commandline::Parsed& parsed, const Means& means);  // 4Ah
DataFields ExternalImage(const commandline::Parsed& parsed, const Means& means);    // 43h, 4Dh
DataFields Character(const commandline::Parsed& parsed, const Means& means);        // 44h, 45h
DataFields BmpBlocks(const commandline::Parsed& parsed, const Means& means);        // 4Bh
DataFields Barcode(const commandline::Parsed& parsed, const Means& means);          // 4Eh
DataFields Indicators(const commandline::Parsed& parsed, const Means& means);       // 5Ah
DataFields StoredSetting(const commandline::Parsed& parsed, const Means& means);    // 91h

// The upper-case digit of a register's name. Throws WrongUse for anything but 0 to F.
std::string RegisterDigit(const std::string& text);
// The upper-case text of hex pairs. Throws WrongUse, in a sentence that begins with `subject`, for
// any other text and for none.
std::string HexPairs(const std::string& text, const std::string& subject);
// Hex text of ASCII characters.
std::string HexOfAscii(const std::string& text);

}  // namespace vantrel::send
