// SPDX-License-Identifier: MIT

#include "protocol/print_text.h"

#include "protocol/card_face.h"
#include "protocol/fields.h"

#include <algorithm>
#include <cstdint>

namespace vantrel::protocol {
namespace {

// One ESC sequence: ESC, its letter, and a value of a fixed number of digits.
struct EscapeRow {
  char letter;
  bool either_case;
  std::uint8_t digits;
  std::uint8_t base;  // of the digits, 10 or 16
  int lowest;
  int highest;
};

// The ranges of X and Y depend on the direction; they stand here for horizontal text.
constexpr EscapeRow kEscapes[] = {
    {'E', true, 2, 10, 11, 22},  // size: vertical, then horizontal factor
    {'G', false, 1, 16, 0, 15},  // external character, 24 dot two-byte
    {'g', false, 1, 16, 0, 15},  // external character, 24 dot one-byte
    {'I', false, 1, 16, 0, 15},  // external character, 16 dot two-byte
    {'i', false, 1, 16, 0, 15},  // external character, 16 dot one-byte
    {'D', false, 1, 16, 0, 15},  // gap right of two-byte characters
    {'d', false, 1, 16, 0, 15},  // gap right of one-byte characters
    {'S', false, 2, 10, 0, 29},  // to the right by two-byte characters
    {'s', false, 2, 10, 0, 59},  // to the right by one-byte characters
    {'B', true, 1, 10, 0, 2},    // line width of one-byte characters
    {'F', true, 1, 10, 0, 1},    // 24 or 16 dots
    {'J', true, 1, 10, 0, 1},    // one-byte characters as such or as wide ones
    {'L', true, 2, 10, 0, 19},   // down by lines
    {'M', true, 1, 16, 0, 15},   // gap between lines
    {'V', true, 1, 10, 1, 2},    // height
    {'W', true, 1, 10, 1, 2},    // width
    {'X', true, 3, 10, 0, kFaceWidth - 1},
    {'Y', true, 3, 10, 0, kFaceHeight - 1},
};

char UpperCase(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

const EscapeRow* FindEscape(char letter) {
  for (const EscapeRow& row : kEscapes) {
    if (letter == row.letter || (row.either_case && UpperCase(letter) == row.letter)) return &row;
  }
  return nullptr;
}

int HighestOf(const EscapeRow& row, bool vertical) {
  if (vertical && row.letter == 'X') return kFaceHeight - 1;
  if (vertical && row.letter == 'Y') return kFaceWidth - 1;
  return row.highest;
}

// `text` begins behind the ESC.
std::optional<TextItem> ParseEscape(std::string_view text, bool vertical, std::size_t& length) {
  const EscapeRow* row = text.empty() ? nullptr : FindEscape(text.front());
  if (row == nullptr || text.size() < std::size_t{1} + row->digits) return std::nullopt;
  int value = 0;
  for (const char character : text.substr(1, row->digits)) {
    const auto digit = HexDigitOf(character);
    if (!digit || *digit >= row->base) return std::nullopt;
    value = value * row->base + *digit;
  }
  if (value < row->lowest || value > HighestOf(*row, vertical)) return std::nullopt;
  // Of 11 to 22 only those of the digits 1 and 2 are sizes.
  if (row->letter == 'E' && (value % 10 < 1 || value % 10 > 2)) return std::nullopt;
  length = std::size_t{1} + row->digits;
  return TextItem{row->letter, value, {}};
}

bool IsControl(char character) { return static_cast<unsigned char>(character) < 0x20; }

}  // namespace

std::optional<std::vector<TextItem>> ParsePrintText(std::string_view text, bool vertical) {
  std::vector<TextItem> items;
  while (!text.empty()) {
    const char first = text.front();
    std::size_t length = 1;
    if (first == kEscape) {
      const auto item = ParseEscape(text.substr(1), vertical, length);
      if (!item) return std::nullopt;
      items.push_back(*item);
      ++length;
    } else if (first == '\r' || first == '\n') {
      items.push_back({first, 0, {}});
    } else if (IsControl(first)) {
      return std::nullopt;
    } else {
      const auto end = std::find_if(text.begin(), text.end(), IsControl);
      length = static_cast<std::size_t>(end - text.begin());
      items.push_back({'\0', 0, std::string(text.substr(0, length))});
    }
    text.remove_prefix(length);
  }
  return items;
}

std::size_t EscapeDigits(char letter) {
  const EscapeRow* row = FindEscape(letter);
  return row == nullptr ? 0 : row->digits;
}

}  // namespace vantrel::protocol
