// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace vantrel::fuzz {

// Whether a text is one JSON object, RFC 8259, in one line of UTF-8 without anything around it.
bool IsJsonLine(std::string_view text);

// The text that a JSON string, in its quotes, stands for; ends the program where it is none.
std::string TextOfJson(std::string_view quoted);

}  // namespace vantrel::fuzz
