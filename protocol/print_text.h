// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::protocol {

// The character that an ESC sequence begins with; its letter and its value follow.
inline constexpr char kEscape = 0x1B;

// A piece of print text: a stretch of characters, a carriage return, a line feed, or one of the
// eighteen ESC sequences.
struct TextItem {
  // NUL for characters, CR, LF, or the letter of the sequence; upper case where the sequence takes
  // either case.
  char letter = '\0';
  int value = 0;     // of the sequence; of ESC E, 11 to 22: the height's factor, then the width's
  std::string text;  // the characters' bytes, in the printer's code page

  // Whether both are the same piece.
  friend bool operator==(const TextItem&, const TextItem&) = default;
};

// Takes print text, the last field of 41h, apart, in its order. Returns nothing where it holds an
// unknown ESC sequence, a sequence with a wrong or missing value, or a control character other than
// CR, LF and ESC. `vertical` decides which X and Y are possible.
std::optional<std::vector<TextItem>> ParsePrintText(std::string_view text, bool vertical);

// How many digits follow an ESC and this letter, 1 to 3; 0 for a letter that has no sequence.
std::size_t EscapeDigits(char letter);

}  // namespace vantrel::protocol
