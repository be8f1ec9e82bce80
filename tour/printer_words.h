// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace vantrel::tour {

// What the software printer does for a command that its tables do not know in words.
struct PrinterWords {
  // Two upper-case hex digits.
  std::string_view code;
  // What changes and what the reply brings, in sentences.
  std::string_view does;
  // When it rejects the command with 10h; nothing where that is told of every command.
  std::string_view rejects{};
};

// The words of a command. Throws std::logic_error where there are none.
const PrinterWords& PrinterWordsOf(std::string_view code);

}  // namespace vantrel::tour
