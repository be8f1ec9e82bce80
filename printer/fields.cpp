#include "printer/fields.h"

namespace vantrel {

std::optional<std::string_view> FieldReader::Text() {
  const std::size_t comma = rest_.find(',');
  if (comma == std::string_view::npos) return std::nullopt;
  const std::string_view field = rest_.substr(0, comma);
  rest_.remove_prefix(comma + 1);
  return field;
}

std::optional<int> FieldReader::Number(int highest) {
  const auto field = Text();
  return field ? NumberOf(*field, highest) : std::nullopt;
}

std::optional<char> FieldReader::Character() {
  const auto field = Text();
  if (!field || field->size() != 1) return std::nullopt;
  return field->front();
}

std::optional<int> NumberOf(std::string_view digits, int highest) {
  if (digits.empty()) return std::nullopt;
  int value = 0;
  for (const char digit : digits) {
    if (digit < '0' || digit > '9') return std::nullopt;
    value = value * 10 + (digit - '0');
    if (value > highest) return std::nullopt;
  }
  return value;
}

std::optional<int> HexDigitOf(char digit) {
  if (digit >= '0' && digit <= '9') return digit - '0';
  if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
  if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
  return std::nullopt;
}

bool IsHexPairs(std::string_view text) {
  for (const char digit : text) {
    if (!HexDigitOf(digit)) return false;
  }
  return !text.empty() && text.size() % 2 == 0;
}

}  // namespace vantrel
