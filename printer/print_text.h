#pragma once

#include "link/code_page.h"
#include "printer/fonts.h"
#include "printer/page.h"
#include "printer/printer_state.h"

#include <optional>
#include <string_view>
#include <vector>

namespace vantrel {

inline constexpr char kEscape = 0x1B;

// A piece of print text: a stretch of characters, a carriage return, a line feed, or one of the
// eighteen ESC sequences.
struct TextItem {
  // '\0' for characters, '\r', '\n', or the letter of the sequence; upper case where the sequence
  // takes either case.
  char letter = '\0';
  int value = 0;          // of the sequence
  std::string_view text;  // the characters' bytes

  bool operator==(const TextItem&) const = default;
};

// Takes print text apart. Returns nothing where it holds an unknown ESC sequence, a sequence with a
// wrong or missing value, or a control character other than CR, LF and ESC. `vertical` decides
// which X and Y are possible. The items point into `text`.
std::optional<std::vector<TextItem>> ParsePrintText(std::string_view text, bool vertical);

// Where print text begins and what it is drawn with.
struct TextSetting {
  Fonts& fonts;
  const PrintRegisters& registers;
  CodePage code_page;
  int x;  // the reference point on the page
  int y;
};

// Draws print text until a character does not fit on the page. Returns whether all did.
bool DrawPrintText(Page& page, const TextSetting& setting, const std::vector<TextItem>& items);

}  // namespace vantrel
