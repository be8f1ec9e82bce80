// SPDX-License-Identifier: MIT
#pragma once

#include "send/exchange.h"

#include <string>

namespace vantrel::send {

enum class Format { kText, kJson, kQuiet };

// An exchange as it is told: a block of lines, a JSON object on a line, or the data alone on a
// line, each with an end of line behind it; empty where there is nothing to tell.
std::string Told(const Exchange& exchange, Format format);
// A frame that is not sent, the same way.
std::string ToldDry(const std::string& code, const std::string& frame, Format format);

// Hex text in pairs with one blank between them.
std::string Pairs(const std::string& hex);
// Two upper-case hex digits.
std::string StatusDigits(unsigned status);

}  // namespace vantrel::send
